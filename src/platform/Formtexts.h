#pragma once

#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "tables/Tablekinds.h"

namespace tml {

/// A component of a form, its ancestors' and its frames' included.
struct TTextOwner {
    std::string Path;  ///< as keys name it; "" for the form itself
    std::string Name;
    std::string ClassName;
    int Holder = -1;  ///< index of the component whose block it stands in, -1 for the form itself
};

/// What a form shows that a table could hold.
struct TOwnedText {
    int Owner = 0;         ///< index of its component
    std::string Property;  ///< from the component on: "Columns[0].Title.Caption"
    std::string Text;      ///< UTF-8; the lines of a list with LF between them
    TStringsType Table = TStringsType::stCaptions;
    /// It may begin an entry; any other only follows one that is there.
    bool IsForReaders = true;

    std::string KeyOf(const std::string& ownerPath) const {
        std::string key;
        key.reserve(ownerPath.size() + 1 + Property.size());
        ((key += ownerPath) += '.') += Property;
        return key;
    }
};

/// The texts of a form, whatever its exclusions say of them.
struct TTextsOfForm {
    std::vector<TTextOwner> Owners;
    std::vector<TOwnedText> Texts;  ///< in the order of the form
    TStringList Notes;              ///< on what could not be read, for the person
};

/// A localization component that can tell what there is to be translated on its form; those of the run-time
/// library can.
class IFormTexts {
  public:
    virtual ~IFormTexts() = default;
    virtual TTextsOfForm GetTextsOfForm() = 0;
    /// Whether TmlCustomLang::BuildList would change nothing.
    virtual bool IsUpToDate() = 0;
};

}  // namespace tml
