#pragma once

#include <QTreeWidget>
#include <functional>

#include "ide/Registrations.h"

namespace tml {

/// The classes that can be put on a form, by pages, in the order of their registration.
class TPaletteList : public QTreeWidget {
  public:
    TPaletteList();

    /// Enter or a double click on a class.
    std::function<void(const std::string& className)> OnPlace;

    void Show(const std::vector<TClassGroup>& pages);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Place(const QTreeWidgetItem* item);

    QStringList shown_;
};

}  // namespace tml
