#pragma once

#include <QTabWidget>
#include <functional>

#include "ide/Headlesside.h"

class QsciScintilla;

namespace tml {

class TCodeEditor;
class TRunner;

/// The open sources and form texts, a tab each.
class TEditorTabs : public QTabWidget {
  public:
    TEditorTabs(THeadlessIde& ide, TRunner& runner);

    /// Asked before a tab closes; closes the module or leaves it.
    std::function<void(const std::shared_ptr<IOTAModule>& module)> OnCloseModule;
    std::function<void(const QPoint& at)> OnLocalMenu;

    /// Hands everything that has been typed to the IDE.
    void Commit();
    /// Tabs of closed modules go, the IDE's current source comes to the front, texts follow the buffers.
    void Follow();
    void ShowSource(const std::shared_ptr<IOTAModule>& module, int index);
    void ShowFormText(const std::string& unitFile);
    void CloseTab(int index);

    /// The source in front, nullptr when none is.
    TCodeEditor* Current() const;
    /// The same or a form's text.
    QsciScintilla* CurrentText() const;
    /// Of the source or form in front, "" when there is none.
    std::string CurrentFile() const;

  private:
    void AddTab(QWidget& widget, const char* picture, const std::string& fileName);
    void DropClosed();
    void FollowCurrent();
    void FollowFormTexts();
    void RefreshTitles();
    TCodeEditor* Find(const std::string& fileName) const;
    std::string FormTextOf(const std::string& formFile);
    /// Of a unit or a form file.
    bool IsFormModified(const std::string& fileName) const;

    THeadlessIde& ide_;
    TRunner& runner_;
    std::string current_;  ///< the IDE's current source, as far as it is known here
};

}  // namespace tml
