#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/Mlruntime.h"
#include "tables/Translationfile.h"

namespace tml {

/// The translation files that components read and write, through the host's view of the disk.
class TLangFiles {
  public:
    explicit TLangFiles(IMlRuntime& runtime) : runtime_(runtime) {}
    TLangFiles(const TLangFiles&) = delete;
    TLangFiles& operator=(const TLangFiles&) = delete;

    /// See IMlRuntime::OpenTranslationFiles.
    std::unique_ptr<ITranslationFiles> Open(const std::string& projectName);

    /// What a file holds of a form; none where it has nothing of it. EFileError for a missing file.
    std::optional<TLangTexts> Read(const std::string& fileName, const std::string& formName);
    /// Puts a form into a file. delimiter as OpenTranslationFile.
    void Write(const std::string& fileName, const std::string& delimiter, const std::string& formName,
               const TLangTexts& texts);
    /// The same with what change makes of what the file holds of the form; change gives none where nothing is
    /// to be written.
    using TChange = std::function<std::optional<TLangTexts>(const std::optional<TLangTexts>& present)>;
    void Change(const std::string& fileName, const std::string& delimiter, const std::string& formName,
                const TChange& change);

  private:
    class TSession;

    IMlRuntime& runtime_;
    TSession* session_ = nullptr;
};

}  // namespace tml
