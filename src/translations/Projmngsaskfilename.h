#pragma once

#include <string>

#include "base/Clock.h"
#include "core/Context.h"

namespace tml {

/// What the window shows in the box " Existing tags: ".
inline constexpr const char* kExistingTags =
    "($PROJECT_NAME) - project name (without extension)\r\n($DAY) - current day\r\n($MONTH) - current "
    "moth\r\n($YEAR) - current year\r\n($HOUR) - current hour\r\n($MINUTE) - current minute\r\n($SECOND) - "
    "current second";

/// The template with its tags, in any letter case, replaced. projectName: a file name without folder; its
/// extension is left out.
std::string GetParsedFileName(IClock& clock, const std::string& fileNameTemplate,
                              const std::string& projectName);

/// The groups of controls of TfrmAsk4FileName; only those of the chosen mode are enabled.
enum TFileNameMode { fmOneFile = 11, fmTemplate = 22 };

/// Asks for the translation file of several projects: one file, or a template of file names.
class TfrmAsk4FileName : public TForm {
  public:
    TfrmAsk4FileName(TContext& context, bool saving);

    bool rbOneFile4All = false;
    bool rbFileNameTemplate = false;
    std::string edFileName;
    std::string edTemplateText = "($PROJECT_NAME).mll";
    std::string edFolderName;
    bool rbMLL = true;
    bool rbMLB = false;
    bool btOKEnabled = false;

    bool IsEnabled(TFileNameMode group) const;
    void rbOneFile4AllClick();
    void rbFileNameTemplateClick();
    void edFileNameChange(const std::string& text);
    void edTemplateTextChange(const std::string& text);
    void edFolderNameChange(const std::string& text);
    /// Both change the extension of the template.
    void rbMLLClick();
    void rbMLBClick();
    void btBrowseForFileClick();
    void btBrowseFolderClick();
    void btOKClick() { Close(mrOk); }
    void btCancelClick() { Close(mrCancel); }

    /// The chosen file name, its tags still in it.
    std::string FileName() const;

  private:
    bool IsFile(const std::string& name) const;
    void CheckOK();

    TContext& context_;
    bool saving_;
};

}  // namespace tml
