#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tml {

/// What a modal window or a message box was closed with; the numbers are the platform's.
enum TModalResult : int {
    mrNone = 0,
    mrOk = 1,
    mrCancel = 2,
    mrAbort = 3,
    mrRetry = 4,
    mrIgnore = 5,
    mrYes = 6,
    mrNo = 7,
    mrClose = 8,
    mrHelp = 9,
    mrTryAgain = 10,
    mrContinue = 11,
    mrAll = 12,
    mrNoToAll = 13,
    mrYesToAll = 14,
};

/// A key with its modifiers; 0 is no shortcut. The low byte is the key, the bits above are the platform's.
using TShortCut = std::uint16_t;

/// An entry of a menu with its sub-menu.
class TMenuItem {
  public:
    std::string Name;     ///< component name
    std::string Caption;  ///< "&" marks the accelerator, "-" is a separator
    std::string Hint;     ///< "short|long" or one text for both
    TShortCut ShortCut = 0;
    int Tag = 0;
    bool Enabled = true;
    bool Visible = true;
    bool Checked = false;
    std::function<void()> OnClick;
    std::vector<std::shared_ptr<TMenuItem>> Items;

    /// Inserts at a 0-based index; an index behind the end appends.
    void Insert(std::size_t index, std::shared_ptr<TMenuItem> item);
    /// Removes a direct sub-item; nothing when it is not there.
    void Remove(const TMenuItem* item);
    /// Runs OnClick where the item has one and is enabled.
    void Click();
};

/// A window without widgets: public members are what the controls hold, methods are the handlers. A view
/// shows it and follows OnChange.
class TForm {
  public:
    virtual ~TForm() = default;

    std::string Name;
    std::string Caption;
    bool Visible = false;
    TModalResult ModalResult = mrNone;
    std::function<void()> OnChange;

    /// The menu bar, nullptr for none.
    std::shared_ptr<TMenuItem> Menu;
    /// The window whose whole client area this one fills without a border; nullptr for a window of its own.
    TForm* Parent = nullptr;
    int ClientWidth = 0;
    int ClientHeight = 0;
    bool Centered = false;      ///< shown in the middle of the screen
    bool StayOnTop = false;     ///< in front of the other windows
    bool Dockable = false;      ///< may be docked into the IDE's window
    std::string ActiveControl;  ///< name of the control with the focus on showing, "" for the first one

    /// Ends the window with this result, unless FormCloseQuery keeps it open.
    void Close(TModalResult result);

    virtual void FormShow() {}
    /// False keeps the window open.
    virtual bool FormCloseQuery() { return true; }
    virtual void FormClose() {}

    /// Tells the view that something it shows has changed.
    void Changed() const;
};

}  // namespace tml
