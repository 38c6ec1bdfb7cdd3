#pragma once

#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Files.h"

namespace tml {

/// Passes every call on to another file system, after a look at it.
class TWrappedFileSystem : public IFileSystem {
  public:
    explicit TWrappedFileSystem(IFileSystem& inner) : inner_(inner) {}

    std::optional<TFileInfo> Stat(const std::string& path) override {
        Before("Stat", path);
        return inner_.Stat(path);
    }
    std::string Read(const std::string& path) override {
        Before("Read", path);
        return inner_.Read(path);
    }
    std::string Resolve(const std::string& path) override {
        Before("Resolve", path);
        return inner_.Resolve(path);
    }
    std::vector<std::string> List(const std::string& folder) override {
        Before("List", folder);
        return inner_.List(folder);
    }
    void MakeFolder(const std::string& folder) override {
        Before("MakeFolder", folder);
        inner_.MakeFolder(folder);
    }
    void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) override {
        Before("Stage", path);
        inner_.Stage(path, bytes, modelPath);
    }
    void Rename(const std::string& from, const std::string& to) override {
        Before("Rename", from + " " + to);
        inner_.Rename(from, to);
    }
    void Remove(const std::string& path) override {
        Before("Remove", path);
        inner_.Remove(path);
    }
    void Flush(const std::vector<std::string>& paths) override {
        Before("Flush", paths.empty() ? "" : paths.front());
        inner_.Flush(paths);
    }
    std::unique_ptr<IFileLock> Lock(const std::string& path) override {
        Before("Lock", path);
        return inner_.Lock(path);
    }

  protected:
    virtual void Before(const std::string& call, const std::string& arguments) = 0;

  private:
    IFileSystem& inner_;
};

/// Keeps a line for every call: "Stage /p/.Unit1.pas.tml-new".
class TLoggingFileSystem : public TWrappedFileSystem {
  public:
    using TWrappedFileSystem::TWrappedFileSystem;
    std::vector<std::string> Log;

    /// The calls that change something.
    std::vector<std::string> Changes() const {
        std::vector<std::string> changes;
        for (const std::string& line : Log)
            for (const char* call : {"MakeFolder ", "Stage ", "Rename ", "Remove ", "Lock "})
                if (line.starts_with(call)) changes.push_back(line);
        return changes;
    }

  protected:
    void Before(const std::string& call, const std::string& arguments) override {
        Log.push_back(call + " " + arguments);
    }
};

/// Fails the n-th call (counted from 1) with an EFileError; Crash: all later calls too, as if the machine
/// had stopped. 0 fails nothing.
class TFaultyFileSystem : public TWrappedFileSystem {
  public:
    enum class TFault { Once, Crash };

    TFaultyFileSystem(IFileSystem& inner, int failAt, TFault fault)
        : TWrappedFileSystem(inner), failAt_(failAt), fault_(fault) {}

    int Calls() const { return calls_; }
    bool HasFailed() const { return failAt_ > 0 && calls_ >= failAt_; }

  protected:
    void Before(const std::string& call, const std::string& arguments) override {
        ++calls_;
        const bool fails = fault_ == TFault::Once ? calls_ == failAt_ : HasFailed();
        if (fails) throw EFileError(arguments, 0, call + " failed: no space left on the device");
    }

  private:
    int failAt_;
    TFault fault_;
    int calls_ = 0;
};

}  // namespace tml
