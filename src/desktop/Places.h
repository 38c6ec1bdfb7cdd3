#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "core/Placement.h"
#include "platform/Registry.h"

class QMainWindow;

namespace tml {

/// What a window may fill of its screen, its frame left out.
QSize RoomFor(const QWidget& window);
/// Puts a window where its state says, but never where no screen is.
void PutAt(QWidget& window, const TPlacement& place);
/// Puts a window at the foot of its parent, where it covers the least of a text.
void PutAtFoot(QWidget& window);
/// Notes where it stands.
void NotePlace(const QWidget& window, TPlacement& place);

/// Where windows stood, in the user's settings. A window whose place is kept by its own state class needs
/// no entry here.
class TPlaces {
  public:
    explicit TPlaces(IRegistry& registry) : registry_(registry) {}

    void Restore(QWidget& window, const std::string& name);
    void Save(const QWidget& window, const std::string& name);
    /// How wide or high the parts of a window are, in widths of its design; empty before the first time.
    std::vector<int> Sizes(const std::string& name);
    void SetSizes(const std::string& name, const std::vector<int>& sizes);
    /// With its tool bars and docks.
    void RestoreState(QMainWindow& window);
    void SaveState(const QMainWindow& window);

    /// Whether the expert's window opens with a project; at first it does.
    bool WantsExpert();
    void SetWantsExpert(bool wants);

    /// Whether the translation editor shows the form of a text; at first it does.
    bool WantsForm();
    void SetWantsForm(bool wants);

    QStringList RecentProjects();
    /// Puts the project in front; the oldest ones are dropped.
    void AddRecentProject(const QString& path);

  private:
    QByteArray Bytes(const std::string& name);
    void SetBytes(const std::string& name, const QByteArray& bytes);

    IRegistry& registry_;
};

}  // namespace tml
