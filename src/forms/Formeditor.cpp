#include "forms/Formeditor.h"

#include "forms/Formbinaryeditor.h"
#include "forms/Formtexteditor.h"

namespace tml {

std::unique_ptr<IFormEditor> MakeFormEditor(const TFormFile& file, const TFormNode& root) {
    if (const auto* const binary = dynamic_cast<const TBinaryFormFile*>(&file)) {
        return std::make_unique<TFormBinaryEditor>(*binary);
    }
    return std::make_unique<TFormTextEditor>(file, root);
}

}  // namespace tml
