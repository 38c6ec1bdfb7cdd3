// The text form of a form:
//
//     object Name: TClass [position]        (or "inherited", "inline"; "object TClass" has no name)
//       Property = value
//       object ... end                      (all properties come before the children)
//     end
//
// White space and line breaks only separate. What follows the end of the root is kept and not looked at.
// The first thing that is not as above ends the reading with a message that names its line.
#include "forms/Formtext.h"

#include <array>
#include <utility>

#include "forms/Formchars.h"
#include "forms/Formlexer.h"
#include "forms/Formvaluereader.h"

namespace tml {

namespace {

constexpr std::array<std::pair<std::string_view, TFormPrefix>, 3> kPrefixes{
    {{"object", TFormPrefix::Object},
     {"inherited", TFormPrefix::Inherited},
     {"inline", TFormPrefix::Inline}}};

class TTextTreeReader {
  public:
    explicit TTextTreeReader(const TFormFile& file)
        : file_(file),
          lexer_(file.Bytes(), file.Bytes().starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0,
                 file.Bytes().size(), 1, file.FileName()),
          values_(file, lexer_, nullptr, nullptr) {}

    std::unique_ptr<TFormNode> Read() {
        lexer_.Next();
        if (!AtNode()) lexer_.Fail("no form: expected 'object', 'inherited' or 'inline'");
        return ReadNode(nullptr, 1);
    }

  private:
    bool AtNode() const { return FindPrefix() != kPrefixes.end(); }
    decltype(kPrefixes)::const_iterator FindPrefix() const;
    std::unique_ptr<TFormNode> ReadNode(TFormNode* parent, int depth);
    void ReadHead(TFormNodeData& data);
    void ReadNames(TFormNodeData& data);
    void ReadProperties(TFormNodeData& data, int depth);
    void Advance(TFormNodeData& data) {
        data.PropertiesEnd = static_cast<std::uint32_t>(lexer_.End());
        lexer_.Next();
    }
    /// Whether a name stands on the line of the head; one on the next line is a property.
    bool AtHeadName() const { return lexer_.Kind() == TFormToken::Name && !lexer_.AfterLineBreak(); }
    TFormSpan Here() const {
        return {static_cast<std::uint32_t>(lexer_.Begin()), static_cast<std::uint32_t>(lexer_.End())};
    }

    const TFormFile& file_;
    TFormLexer lexer_;
    TTextValueReader values_;
};

decltype(kPrefixes)::const_iterator TTextTreeReader::FindPrefix() const {
    auto found = kPrefixes.begin();
    while (found != kPrefixes.end() && !lexer_.IsWord(found->first))
        ++found;
    return found;
}

std::unique_ptr<TFormNode> TTextTreeReader::ReadNode(TFormNode* parent, int depth) {
    if (depth > kMaxFormDepth) lexer_.Fail("more than 1000 levels of nesting");
    auto node = std::make_unique<TFormNode>();
    TFormNodeData& data = node->Data();
    data.File = &file_;
    data.Parent = parent;
    ReadHead(data);
    ReadProperties(data, depth);
    while (AtNode())
        data.Children.push_back(ReadNode(node.get(), depth + 1));
    if (!lexer_.IsWord("end")) {
        lexer_.Fail(lexer_.Kind() == TFormToken::End
                        ? "the component of line " + std::to_string(data.Line) + " has no 'end'"
                        : "expected a component or 'end' behind a component");
    }
    data.Span.End = static_cast<std::uint32_t>(lexer_.End());
    // Behind the root may stand anything.
    if (parent != nullptr) lexer_.Next();
    return node;
}

void TTextTreeReader::ReadHead(TFormNodeData& data) {
    data.Prefix = FindPrefix()->second;
    data.Line = lexer_.Line();
    data.Span.Begin = static_cast<std::uint32_t>(lexer_.Begin());
    Advance(data);
    ReadNames(data);
    data.Name = DecodeFrom(file_, file_.At(data.NameSpan));
    data.ClassName = DecodeFrom(file_, file_.At(data.ClassSpan));
    if (!lexer_.IsSymbol('[')) return;
    data.Position = values_.ReadPosition();
    data.PropertiesEnd = static_cast<std::uint32_t>(values_.LastEnd());
}

void TTextTreeReader::ReadNames(TFormNodeData& data) {
    const std::uint32_t behind = data.PropertiesEnd;
    data.NameSpan = data.ClassSpan = {behind, behind};
    if (!AtHeadName()) return;
    // A name alone is that of the class.
    data.ClassSpan = Here();
    data.NameSpan = {data.ClassSpan.Begin, data.ClassSpan.Begin};
    Advance(data);
    if (!lexer_.IsSymbol(':') || lexer_.AfterLineBreak()) return;
    data.NameSpan = data.ClassSpan;
    Advance(data);
    const std::uint32_t behindColon = data.PropertiesEnd;
    data.ClassSpan = {behindColon, behindColon};
    if (!AtHeadName()) return;
    data.ClassSpan = Here();
    Advance(data);
}

void TTextTreeReader::ReadProperties(TFormNodeData& data, int depth) {
    while (!lexer_.IsWord("end") && !AtNode()) {
        TFormPropertyPlace& place = data.Properties.emplace_back();
        if (lexer_.Kind() == TFormToken::End) {
            lexer_.Fail("the component of line " + std::to_string(data.Line) + " has no 'end'");
        }
        place.Name = values_.ReadPropertyName();
        place.Value.Begin = static_cast<std::uint32_t>(lexer_.Begin());
        place.Value.End = data.PropertiesEnd = static_cast<std::uint32_t>(values_.Read(depth));
    }
}

}  // namespace

std::unique_ptr<TFormNode> TTextFormFile::Parse() {
    return TTextTreeReader(*this).Read();
}

void TTextFormFile::Read(TFormSpan value, TFormSink& sink, IFormPlaces* places) const {
    TFormLexer lexer(Bytes(), value.Begin, value.End, 0, FileName());
    lexer.Next();
    TTextValueReader(*this, lexer, &sink, places).Read(0);
}

/// A text begins with an apostrophe or a code, a list, a collection and binary data with their bracket.
bool TTextFormFile::MayHoldTexts(TFormSpan value) const {
    const char first = At(value).front();
    return first == '\'' || first == '#' || first == '(' || first == '<' || first == '{';
}

std::string_view TTextFormFile::Name(TFormSpan name) const {
    return UnquotedName(At(name));
}

TEncoding TTextFormFile::FindEncoding() const {
    return DetectEncoding(Bytes(), CodePage());
}

}  // namespace tml
