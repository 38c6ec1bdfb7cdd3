#include "runtime/Langfiles.h"

#include <utility>

#include "base/Errors.h"

namespace tml {

class TLangFiles::TSession : public ITranslationFiles {
  public:
    TSession(TLangFiles& owner, std::string projectName)
        : owner_(owner), outer_(owner.session_), projectName_(std::move(projectName)) {
        owner_.session_ = this;
    }
    ~TSession() override { owner_.session_ = outer_; }
    TSession(const TSession&) = delete;
    TSession& operator=(const TSession&) = delete;

    TStringList GetLanguages(const std::string& fileName) override {
        return OpenPresent(fileName).File->Languages();
    }

    void ExpectWritable(const std::string& fileName, const std::string& delimiter) override {
        OpenFile(fileName, delimiter).File->ExpectWritable();
    }

    void Commit() override {
        for (auto& [fileName, open] : open_) {
            if (!open.Changed) continue;
            ExpectUnchanged(fileName, open);
            if (open.File->IsChanged())
                if (std::string bytes = open.File->Bytes(); bytes != open.File->BytesRead())
                    Files(fileName).WriteFile(fileName, std::move(bytes));
            open.Changed = false;
        }
    }

    std::optional<TLangTexts> Read(const std::string& fileName, const std::string& formName) {
        const TOpenFile& open = OpenPresent(fileName);
        const auto found = open.Finder.Find({projectName_, formName});
        return found ? open.File->Read(*found) : std::nullopt;
    }

    void Write(const std::string& fileName, const std::string& delimiter, const std::string& formName,
               const TLangTexts& texts) {
        TOpenFile& open = OpenFile(fileName, delimiter);
        const TFormAddress form{projectName_, formName};
        open.File->Put(open.Finder.Find(form).value_or(form), texts);
        open.Changed = true;
    }

    void Change(const std::string& fileName, const std::string& delimiter, const std::string& formName,
                const TChange& change) {
        const TOpenFile& open = OpenFile(fileName, delimiter);
        const auto found = open.Finder.Find({projectName_, formName});
        if (auto texts = change(found ? open.File->Read(*found) : std::nullopt))
            Write(fileName, delimiter, formName, *texts);
    }

  private:
    struct TOpenFile {
        bool IsThere;
        std::unique_ptr<ITranslationFile> File;
        TFormFinder Finder;
        bool Changed = false;
    };

    ICommandFiles& Files(const std::string& fileName) const {
        if (owner_.runtime_.Files == nullptr)
            throw EFileError(fileName, 0, "this IDE gives no files", "Choose another one");
        return *owner_.runtime_.Files;
    }

    TOpenFile& OpenFile(const std::string& fileName, const std::string& delimiter) {
        const auto present = open_.find(fileName);
        if (present != open_.end()) return present->second;
        std::optional<std::string> bytes = Files(fileName).ReadFile(fileName);
        const bool isThere = bytes.has_value();
        auto file = OpenTranslationFile(isThere ? *std::move(bytes) : std::string(), fileName, delimiter);
        TFormFinder finder(*file);
        return open_.emplace(fileName, TOpenFile{isThere, std::move(file), std::move(finder)}).first->second;
    }

    TOpenFile& OpenPresent(const std::string& fileName) {
        TOpenFile& open = OpenFile(fileName, {});
        if (!open.IsThere)
            throw EFileError(fileName, 0, "there is no such file", "Choose a translation file");
        if (open.File->BytesRead().empty())
            throw EBadInput(fileName, 0, "the file is empty", "Choose a translation file");
        return open;
    }

    void ExpectUnchanged(const std::string& fileName, const TOpenFile& open) const {
        std::string_view rest = open.File->BytesRead();
        bool isSame = true;
        const bool isThere = Files(fileName).ReadParts(fileName, [&](std::string_view part) {
            isSame = rest.starts_with(part);
            if (isSame) rest.remove_prefix(part.size());
            return isSame;
        });
        if (isThere != open.IsThere || !isSame || !rest.empty())
            throw EFileError(fileName, 0, "the file has changed since it was read", "Repeat the command");
    }

    TLangFiles& owner_;
    TSession* outer_;
    std::string projectName_;
    std::unordered_map<std::string, TOpenFile> open_;
};

std::unique_ptr<ITranslationFiles> TLangFiles::Open(const std::string& projectName) {
    return std::make_unique<TSession>(*this, projectName);
}

std::optional<TLangTexts> TLangFiles::Read(const std::string& fileName, const std::string& formName) {
    if (session_ != nullptr) return session_->Read(fileName, formName);
    return TSession(*this, {}).Read(fileName, formName);
}

void TLangFiles::Write(const std::string& fileName, const std::string& delimiter, const std::string& formName,
                       const TLangTexts& texts) {
    if (session_ != nullptr) return session_->Write(fileName, delimiter, formName, texts);
    TSession alone(*this, {});
    alone.Write(fileName, delimiter, formName, texts);
    alone.Commit();
}

void TLangFiles::Change(const std::string& fileName, const std::string& delimiter,
                        const std::string& formName, const TChange& change) {
    if (session_ != nullptr) return session_->Change(fileName, delimiter, formName, change);
    TSession alone(*this, {});
    alone.Change(fileName, delimiter, formName, change);
    alone.Commit();
}

}  // namespace tml
