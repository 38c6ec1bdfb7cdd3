#pragma once

#include <QTabWidget>
#include <functional>

#include "ide/Headlesside.h"
#include "platform/Mlruntime.h"

namespace tml {

class TCodeEditor;
class TFormView;
class TRunner;
class TTextPage;

/// The open sources and forms, a tab each.
class TEditorTabs : public QTabWidget {
  public:
    TEditorTabs(THeadlessIde& ide, IMlRuntime& runtime, TRunner& runner);

    /// Asked before a tab closes; closes the module or leaves it.
    std::function<void(const std::shared_ptr<IOTAModule>& module)> OnCloseModule;
    std::function<void(const QPoint& at)> OnLocalMenu;

    /// Hands everything that has been typed to the IDE.
    void Commit();
    /// Tabs of closed modules go, the IDE's current editor comes to the front, texts follow the buffers.
    void Follow();
    /// Opens what the file belongs to and brings the file itself to the front; a form that cannot be read
    /// comes as a text.
    void ShowFile(const std::string& fileName);
    /// Opens the unit and brings its form to the front; nothing for a unit without one.
    void ShowForm(const std::string& unitFile);
    /// Closing a source, or a form whose source is not shown, closes their module.
    void CloseTab(int index);

    /// The source in front, nullptr when none is.
    TCodeEditor* Current() const;
    /// The same or a form's text, which may stand behind its picture.
    TTextPage* CurrentText() const;
    /// The same, brought before the picture.
    TTextPage* ShowText();
    /// Of the source or form in front, "" when there is none.
    std::string CurrentFile() const;

  private:
    /// nullptr for a tab that is none, or no form's.
    TFormView* FormAt(int index) const;
    /// The source or the form's text; nullptr for no tab.
    TTextPage* Page(int index) const;
    /// The tab of a file, -1 where it has none.
    int Find(const std::string& fileName) const;
    /// The tab in front becomes the IDE's current editor.
    void TellCurrent();
    /// Give the index of the tab.
    int AddSource(const std::shared_ptr<IOTAModule>& module, const std::shared_ptr<IOTASourceEditor>& source);
    int AddForm(const std::string& fileName);
    int AddTab(QWidget& page, const std::string& fileName, const char* picture);
    void DropClosed();
    void FollowCurrent();
    /// What a command leaves open and not saved gets a tab.
    void ShowUnsaved();
    void FollowForms();
    void RefreshTitles();
    /// Of a unit or a form file.
    bool IsFormModified(const std::string& fileName) const;

    THeadlessIde& ide_;
    IMlRuntime& runtime_;
    TRunner& runner_;
    std::string current_;  ///< file of the IDE's current editor, as far as it is known here
};

}  // namespace tml
