#include "host/Commonlibrary.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>

#ifdef _WIN32
#include <filesystem>
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace tml {
namespace {

#ifdef _WIN32
constexpr const char* kLibraryFile = "TmlLang_Common.dll";

void* OpenLibrary(const std::string& path) {
    return LoadLibraryW(std::filesystem::u8path(path).c_str());
}
void CloseLibrary(void* handle) {
    FreeLibrary(static_cast<HMODULE>(handle));
}
void* FindEntry(void* handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}
#else
constexpr const char* kLibraryFile = "TmlLang_Common.so";

void* OpenLibrary(const std::string& path) {
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}
void CloseLibrary(void* handle) {
    dlclose(handle);
}
void* FindEntry(void* handle, const char* name) {
    return dlsym(handle, name);
}
#endif

/// Handles below this are error codes of the system, not libraries.
constexpr std::uintptr_t kFirstHandle = 33;

/// A text as the library takes it, which ends with a zero byte: one within the text becomes a blank.
class TZeroEnded {
  public:
    explicit TZeroEnded(const std::string& text) : text_(&text) {
        if (text.find('\0') == std::string::npos) return;
        std::replace_copy(text.begin(), text.end(), std::back_inserter(blanked_), '\0', ' ');
        text_ = &blanked_;
    }
    const char* Text() const { return text_->c_str(); }

  private:
    std::string blanked_;
    const std::string* text_;
};

class TCommonLibrary : public ICommonLibrary {
  public:
    explicit TCommonLibrary(void* handle) : handle_(handle) {
        Bind(initSource_, "InitInternalPasSource");
        Bind(isCommentAt_, "IsCommentAt");
        Bind(stringMatches_, "mlREStringMatches");
    }
    ~TCommonLibrary() override { CloseLibrary(handle_); }
    TCommonLibrary(const TCommonLibrary&) = delete;
    TCommonLibrary& operator=(const TCommonLibrary&) = delete;

    bool HasClassifier() const override { return isCommentAt_ != nullptr; }
    bool HasMatcher() const override { return stringMatches_ != nullptr; }

    void InitInternalPasSource(const std::string& text) override {
        if (initSource_ != nullptr) initSource_(TZeroEnded(text).Text());
    }
    bool IsCommentAt(int line, int offset, bool isCpp) override {
        return isCommentAt_ != nullptr && isCommentAt_(line, offset, isCpp) != 0;
    }
    bool mlREStringMatches(const std::string& text, const std::string& pattern) override {
        return stringMatches_ != nullptr && stringMatches_(TZeroEnded(text).Text(), pattern.c_str()) != 0;
    }

  private:
    template <typename Function>
    void Bind(Function& function, const char* name) {
        function = reinterpret_cast<Function>(FindEntry(handle_, name));
    }

    void* handle_;
    void (*initSource_)(const char*) = nullptr;
    unsigned char (*isCommentAt_)(int, int, bool) = nullptr;
    unsigned char (*stringMatches_)(const char*, const char*) = nullptr;
};

class TCommonLibraryLoader : public ICommonLibraryLoader {
  public:
    explicit TCommonLibraryLoader(std::string path) : path_(std::move(path)) {}

    ICommonLibrary* Load() override {
        if (library_ == nullptr) {
            void* handle = OpenLibrary(path_);
            const bool loaded = reinterpret_cast<std::uintptr_t>(handle) >= kFirstHandle;
            if (loaded) library_ = std::make_unique<TCommonLibrary>(handle);
        }
        return library_.get();
    }
    void Unload() override { library_.reset(); }

  private:
    std::string path_;
    std::unique_ptr<ICommonLibrary> library_;
};

}  // namespace

std::unique_ptr<ICommonLibraryLoader> MakeCommonLibraryLoader(const std::string& path) {
    return std::make_unique<TCommonLibraryLoader>(path);
}

std::string CompanionPath(IFileSystem& files, const std::string& programFolder, const std::string& name) {
    std::string beside = JoinPath(programFolder, name);
    if (files.Stat(beside)) return beside;
    return JoinPath(JoinPath(FolderOf(programFolder), "lib/tmllang"), name);
}

std::string CommonLibraryPath(IFileSystem& files, const std::string& programFolder) {
    return CompanionPath(files, programFolder, kLibraryFile);
}

}  // namespace tml
