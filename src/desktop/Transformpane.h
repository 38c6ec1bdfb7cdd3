#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "layout/Formlayout.h"
#include "platform/Host.h"
#include "runtime/Shownform.h"
#include "runtime/Transtexts.h"

class QLabel;
class QScrollArea;

namespace tml {

/// The form of the text that is being translated, as it reads with what has been edited, the text's control
/// marked and in sight.
class TTransFormPane : public QWidget {
  public:
    TTransFormPane(const THost& host, const TTransTexts& texts);
    ~TTransFormPane() override;

    /// Draws the form of a row in a column's language; typed stands in the place of the row's text there.
    /// Nothing while the pane is hidden.
    void Show(TTransRow row, int column, std::optional<std::string> typed);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    class TPicture;
    /// What the layout knows of the form's library.
    TLayoutOptions OptionsOf(const std::string& formName) const;
    void Read(const TTransForm& form);
    /// The form's texts with what has been edited, and with what is being typed.
    TLangTexts ShownTexts() const;
    void ShowTitle(bool isMarked);
    void DrawForm();
    void Draw();
    void ScrollToBegin();

    const THost& host_;
    const TTransTexts& texts_;
    TPicture* picture_;
    QLabel* title_;
    QScrollArea* scroll_;
    QLabel* notes_;
    const TmlCustomLang* lang_ = nullptr;  ///< whose form has been read
    std::unique_ptr<TShownForm> form_;
    TLayoutOptions options_;
    TTransRow row_;
    int column_ = 1;
    std::optional<std::string> typed_;
};

}  // namespace tml
