#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Encodings.h"
#include "forms/Formnode.h"
#include "forms/Formsink.h"

namespace tml {

/// The bytes of a form file as they were read, and how to read them: the part that the text and the binary
/// kind have in common.
class TFormFile {
  public:
    /// Throws EBadInput for a file whose offsets do not fit a span.
    TFormFile(std::shared_ptr<const std::string> bytes, std::string fileName, std::string_view codePage);
    virtual ~TFormFile() = default;
    TFormFile(const TFormFile&) = delete;
    TFormFile& operator=(const TFormFile&) = delete;

    const std::string& Bytes() const { return *bytes_; }
    const std::string& FileName() const { return fileName_; }
    std::string_view At(TFormSpan span) const {
        return std::string_view(*bytes_).substr(span.Begin, span.End - span.Begin);
    }
    /// The code page that the project names, "" when it names none.
    const std::string& CodePage() const { return codePage_; }
    /// The encoding of strings and names with bytes above 127, found when it is first asked for.
    const TEncoding& Encoding() const;

    virtual bool IsBinary() const = 0;
    /// Reads the whole file; throws EBadInput where it is broken.
    virtual std::unique_ptr<TFormNode> Parse() = 0;
    /// Gives the value at a place that Parse has found.
    virtual void Read(TFormSpan value, TFormSink& sink, IFormPlaces* places = nullptr) const = 0;
    /// See MayHoldTexts of a kind; cheaper than to read the value.
    virtual bool MayHoldTexts(TFormSpan value) const = 0;
    /// The bytes of a name at a place that Parse has found, without quotes or length.
    virtual std::string_view Name(TFormSpan name) const = 0;

  protected:
    virtual TEncoding FindEncoding() const = 0;

  private:
    std::shared_ptr<const std::string> bytes_;
    std::string fileName_;
    std::string codePage_;
    mutable std::optional<TEncoding> encoding_;
};

/// The file of the bytes: binary when they begin as a binary form does, else text. Not parsed yet.
std::unique_ptr<TFormFile> MakeFormFile(std::shared_ptr<const std::string> bytes, const std::string& fileName,
                                        std::string_view codePage);

/// Gives a node with all below it, changed properties with their new values.
void WriteNode(const TFormNode& node, TFormSink& sink);

}  // namespace tml
