#include "forms/Formfile.h"

#include <limits>
#include <utility>

#include "base/Errors.h"
#include "forms/Formbinary.h"
#include "forms/Formbuilder.h"
#include "forms/Formstrings.h"
#include "forms/Formtext.h"

namespace tml {

TFormFile::TFormFile(std::shared_ptr<const std::string> bytes, std::string fileName,
                     std::string_view codePage)
    : bytes_(std::move(bytes)), fileName_(std::move(fileName)), codePage_(codePage) {
    if (bytes_->size() >= std::numeric_limits<std::uint32_t>::max()) {
        throw EBadInput(fileName_, 0, "a form file of 4 GB or more", "Store large data outside of the form");
    }
}

const TEncoding& TFormFile::Encoding() const {
    if (!encoding_) encoding_ = FindEncoding();
    return *encoding_;
}

std::unique_ptr<TFormFile> MakeFormFile(std::shared_ptr<const std::string> bytes, const std::string& fileName,
                                        std::string_view codePage) {
    if (TBinaryFormFile::IsBinaryForm(*bytes)) {
        return std::make_unique<TBinaryFormFile>(std::move(bytes), fileName, codePage);
    }
    return std::make_unique<TTextFormFile>(std::move(bytes), fileName, codePage);
}

void WriteNode(const TFormNode& node, TFormSink& sink) {
    const TFormNodeData& data = node.Data();
    const TFormFile& file = *data.File;
    if (data.IsNew) {
        const std::string name = EncodeFor(file, data.Name);
        sink.BeginNode({data.Prefix, data.Position, name, EncodeFor(file, data.ClassName)});
    } else {
        sink.BeginNode({data.Prefix, data.Position, file.Name(data.NameSpan), file.Name(data.ClassSpan)});
    }
    for (const TFormPropertyPlace& place : data.Properties) {
        if (place.Change) {
            sink.Property(CheckedPropertyName(place.Change->Name, file));
            EmitValue(place.Change->Value, file, sink);
        } else {
            sink.Property(file.Name(place.Name));
            file.Read(place.Value, sink);
        }
    }
    sink.EndProperties();
    for (const auto& child : data.Children)
        WriteNode(*child, sink);
    sink.EndNode();
}

}  // namespace tml
