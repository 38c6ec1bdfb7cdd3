#pragma once

#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "core/Langsetup.h"

namespace tml {

/// What would be lost if the components of the rows were so configured: "English as the base language of
/// MainForm; the texts of German, French of AboutBox", "" for nothing. A language that is given up by its
/// name is no loss. A form that cannot be read is passed over: setting its languages tells what is wrong with
/// it.
std::string LossesOf(TContext& context, const std::vector<TFormRow*>& rows, const TLangSetUp& setUp,
                     const TStringList& givenUp = {});
/// The same of one component or dispatcher, which is called by the name.
std::string LossOf(ILanguages& languages, const std::string& name, const TLangSetUp& setUp,
                   const TStringList& givenUp = {});

}  // namespace tml
