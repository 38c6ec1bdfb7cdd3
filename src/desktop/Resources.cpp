#include "desktop/Resources.h"

#include <QtGlobal>

// Outside a namespace, as the toolkit's macro asks.
void LoadResources() {
    Q_INIT_RESOURCE(Desktop);
}
