#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

namespace tml {

/// The person in a test: knows which questions come, in which order, and what to answer. A question that
/// is not expected fails the test, as does an answer that nobody asks for.
class TScriptedUser : public IDialogs {
  public:
    ~TScriptedUser() override {
        for (const TStep& step : steps_)
            ADD_FAILURE() << "nobody asked: " << step.Question;
    }

    void OnMessage(const std::string& text, TModalResult answer = mrOk) {
        steps_.push_back({.Question = text, .Answer = answer, .Text = {}, .Use = {}});
    }
    /// Without an answer the question is cancelled.
    void OnInput(const std::string& prompt, const std::optional<std::string>& answer) {
        steps_.push_back({.Question = prompt, .Answer = mrOk, .Text = answer, .Use = {}});
    }
    /// use works with the window until it has a ModalResult.
    template <typename Form>
    void OnWindow(const std::string& name, std::function<void(Form&)> use) {
        steps_.push_back({.Question = name, .Answer = mrOk, .Text = {}, .Use = [use](TForm& form) {
                              use(dynamic_cast<Form&>(form));
                          }});
    }

    std::vector<std::string> Progress;  ///< each text once in a row
    std::vector<std::string> Bars;      ///< each text with a bar, and where that stood: "Scanning... 1/3"
    bool ProgressShown = false;
    std::string StopAt;  ///< the person stops at this progress text
    std::vector<TForm*> Shown;
    std::vector<std::string> Noted;

    TModalResult MessageDlg(const std::string& text, TMsgDlgType, const TMsgDlgButtons& buttons) override {
        const TStep step = Next(text);
        EXPECT_NE(std::find(buttons.begin(), buttons.end(), step.Answer), buttons.end()) << text;
        EXPECT_FALSE(ProgressShown) << text;
        return step.Answer;
    }
    bool InputQuery(const std::string&, const std::string& prompt, std::string& value) override {
        const TStep step = Next(prompt);
        Proposed = value;
        if (step.Text) value = *step.Text;
        return step.Text.has_value();
    }
    TModalResult ShowModal(TForm& form) override {
        EXPECT_FALSE(ProgressShown) << form.Name;
        form.FormShow();
        const TStep step = Next(form.Name);
        if (step.Use) step.Use(form);
        EXPECT_NE(form.ModalResult, mrNone) << form.Name << " stays open";
        EXPECT_TRUE(form.FormCloseQuery()) << form.Name << " stays open";
        form.FormClose();
        return form.ModalResult;
    }
    void Show(TForm& form) override { Shown.push_back(&form); }
    bool ShowProgress(const std::string& text, int position, int maximum) override {
        ProgressShown = true;
        if (maximum > 0)
            Bars.push_back(text + " " + std::to_string(position) + "/" + std::to_string(maximum));
        if (Progress.empty() || Progress.back() != text) Progress.push_back(text);
        return text != StopAt;
    }
    void HideProgress() override { ProgressShown = false; }
    void NoteError(const std::exception& error) override { Noted.emplace_back(error.what()); }

    std::string Proposed;  ///< by the last InputQuery

  private:
    struct TStep {
        std::string Question;
        TModalResult Answer;
        std::optional<std::string> Text;
        std::function<void(TForm&)> Use;
    };

    TStep Next(const std::string& question) {
        if (steps_.empty()) {
            ADD_FAILURE() << "nobody expects: " << question;
            return {.Question = question, .Answer = mrCancel, .Text = {}, .Use = {}};
        }
        TStep step = steps_.front();
        steps_.pop_front();
        EXPECT_EQ(question, step.Question);
        return step;
    }

    std::deque<TStep> steps_;
};

}  // namespace tml
