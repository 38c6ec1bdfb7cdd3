#include "desktop/Stepedit.h"

namespace tml {

void TStepEdit::stepBy(int steps) {
    // The page keys and the wheel make several steps.
    for (int i = 0; i < qAbs(steps); ++i)
        OnStep(steps < 0 ? -1 : 1);
}

}  // namespace tml
