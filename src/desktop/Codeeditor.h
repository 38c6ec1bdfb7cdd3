#pragma once

#include <Qsci/qsciscintilla.h>
#include <functional>
#include <memory>

#include "platform/Toolsapi.h"

namespace tml {

/// A text in a tab.
class TTextPage : public QsciScintilla {
  public:
    explicit TTextPage(std::string fileName);

    const std::string& FileName() const { return fileName_; }
    /// 1-based line.
    void GoToLine(int line);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    std::string fileName_;
};

/// One source of the IDE in a tab. The IDE's buffer is the truth: what is typed goes there by Commit, what
/// commands change comes from there by Follow. Both speak UTF-8 with CR LF, so their offsets are equal.
class TCodeEditor : public TTextPage {
  public:
    TCodeEditor(const std::shared_ptr<IOTAModule>& module, std::shared_ptr<IOTASourceEditor> source);

    std::function<void()> OnTyped;
    std::function<void(const QPoint& at)> OnLocalMenu;

    /// The module that it was opened for; expired when that is gone.
    const std::weak_ptr<IOTAModule>& Module() const { return module_; }
    IOTASourceEditor& Source() { return *source_; }
    bool IsModified();

    /// Makes what has been typed one step of undo. What the buffer refuses is taken back here and the
    /// error passes on.
    void Commit();
    void Follow();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    std::string_view Shown() const;
    void GiveBlock();
    void TakeBlock();
    void ShowCaretAbove();
    TOTACharPos CharPosOf(long position) const;
    long PositionOf(const TOTACharPos& place) const;

    std::weak_ptr<IOTAModule> module_;
    std::shared_ptr<IOTASourceEditor> source_;
    std::shared_ptr<const std::string> taken_;  ///< the buffer's text that is shown
    bool typed_ = false;
    bool following_ = false;
};

/// A form file as text, only to be read.
class TFormTextView : public TTextPage {
  public:
    explicit TFormTextView(const std::string& fileName);

    void SetContent(const std::string& text);

  private:
    std::string text_;
};

}  // namespace tml
