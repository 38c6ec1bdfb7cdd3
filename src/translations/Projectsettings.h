#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Files.h"
#include "core/Context.h"
#include "platform/Projectoptions.h"
#include "translations/Memini.h"

namespace tml {

/// The translation settings of a project in its ".mlproj" file.
class TmlLangProjectSettings : public ImlLangProjectSettings {
  public:
    explicit TmlLangProjectSettings(TContext& context) : context_(context), files_(*context.Host.Files) {}

    std::string GetFileName() override { return fileName_; }
    /// Keeps the full path and loads the file.
    void SetFileName(const std::string& name) override;
    void LoadFile() override;
    /// EBadInput without a file name; EFileError where the file cannot be written.
    void SaveFile() override;
    /// An unknown option is the empty text.
    TOptionValue GetOptionValue(const std::string& name) override;
    /// An unknown option is ignored, but counts as a change. EConvertError for a text that is no switch.
    void SetOptionValue(const std::string& name, const TOptionValue& value) override;
    void DisplayEditDialog() override;
    bool GetIsChanged() override { return changed_; }

    using TOptions = std::vector<std::pair<const char*, TOptionValue>>;
    /// Sets options, in order, and saves the file. Errors as of SetOptionValue and SaveFile; options and
    /// GetIsChanged are as they were then.
    void SaveOptions(const TOptions& options);

    /// Full names of the external files; the file has them from the project's folder on.
    TStringList GetExternalFiles();
    /// They are written with the options. EBadInput for a name with a line break.
    void SetExternalFiles(const TStringList& files);

  private:
    TContext& context_;
    IFileSystem& files_;
    std::string fileName_;
    std::unique_ptr<TmlMemIniFile> store_;
    bool changed_ = false;
};

}  // namespace tml
