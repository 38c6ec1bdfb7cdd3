#include "tables/Translationfile.h"

#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "tables/Mlbfile.h"
#include "tables/Mllfile.h"

namespace tml {

TFormFinder::TFormFinder(const ITranslationFile& file) {
    for (TFormAddress& form : file.Forms()) {
        std::string name = UpperCase(form.Form);
        byName_[std::move(name)].push_back(std::move(form));
    }
}

std::optional<TFormAddress> TFormFinder::Find(const TFormAddress& form) const {
    const auto named = byName_.find(UpperCase(form.Form));
    if (named == byName_.end()) return std::nullopt;
    std::vector<TFormAddress> candidates;
    for (const TFormAddress& candidate : named->second) {
        if (SameText(candidate.Project, form.Project)) return candidate;
        if (candidate.Project.empty() || form.Project.empty()) candidates.push_back(candidate);
    }
    return candidates.size() == 1 ? std::optional(candidates.front()) : std::nullopt;
}

std::string PlainLanguageName(std::string_view name) {
    std::string plain(Trim(name));
    std::replace(plain.begin(), plain.end(), '\r', ' ');
    std::replace(plain.begin(), plain.end(), '\n', ' ');
    return plain;
}

bool IsBinaryTranslation(std::string_view fileName) {
    constexpr std::string_view kExtension = ".mlb";
    return fileName.size() >= kExtension.size() &&
           SameText(fileName.substr(fileName.size() - kExtension.size()), kExtension);
}

std::unique_ptr<ITranslationFile> OpenTranslationFile(std::string bytes, const std::string& fileName,
                                                      const std::string& delimiter) {
    if (IsBinaryTranslation(fileName)) return std::make_unique<TMlbFile>(std::move(bytes), fileName);
    if (TMlbFile::IsBegunBy(bytes))
        throw EBadInput(fileName, 0, "this is a binary translation file", "Give it the extension .mlb");
    return std::make_unique<TMllFile>(std::move(bytes), fileName, delimiter);
}

}  // namespace tml
