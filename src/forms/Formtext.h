#pragma once

#include "forms/Formfile.h"

namespace tml {

/// A form in its text form.
class TTextFormFile : public TFormFile {
  public:
    using TFormFile::TFormFile;

    bool IsBinary() const override { return false; }
    std::unique_ptr<TFormNode> Parse() override;
    void Read(TFormSpan value, TFormSink& sink, IFormPlaces* places = nullptr) const override;
    bool MayHoldTexts(TFormSpan value) const override;
    std::string_view Name(TFormSpan name) const override;

  protected:
    TEncoding FindEncoding() const override;
};

}  // namespace tml
