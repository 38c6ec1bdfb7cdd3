#pragma once

#include <map>
#include <string>

#include "core/Context.h"
#include "platform/Dictionarytool.h"

namespace tml {

/// The system's own dictionary tool: .dix files, which it reads and writes as the running command does.
class TDixTool : public IDictionaryTool {
  public:
    explicit TDixTool(TContext& context) : context_(context) {}

    TDictionary Load(const std::string& fileName) override;
    void Save(const std::string& fileName, const TDictionary& dictionary) override;
    void Show(const std::string& fileName) override;

  private:
    TContext& context_;
    std::map<std::string, std::string> read_;  ///< the bytes of files as they were, "" for none
};

}  // namespace tml
