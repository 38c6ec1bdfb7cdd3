#pragma once

#include <string>
#include <string_view>

namespace tml {

enum class TFormToken : unsigned char { End, Name, Integer, Float, String, Symbol };

/// The tokens of a text form. White space (line breaks included) only separates them. A string token is
/// one run of quoted pieces and character codes; what joins runs (" +") is the parser's business.
class TFormLexer {
  public:
    /// Reads from byte offset begin of text up to end; both strings must outlive the lexer. line is that of
    /// the first byte read.
    TFormLexer(const std::string& text, std::size_t begin, std::size_t end, int line,
               const std::string& fileName);

    /// Reads the next token; throws EBadInput where none can be read.
    void Next();

    TFormToken Kind() const { return kind_; }
    std::size_t Begin() const { return begin_; }
    std::size_t End() const { return end_; }
    std::string_view Text() const { return std::string_view(text_).substr(begin_, end_ - begin_); }
    bool IsSymbol(char symbol) const { return kind_ == TFormToken::Symbol && text_[begin_] == symbol; }
    bool IsWord(std::string_view lowerCase) const;
    /// The 1-based line on which the token stands.
    int Line() const { return line_; }
    /// Whether a line break stands between the token before and this one.
    bool AfterLineBreak() const { return afterLineBreak_; }

    /// Reads the hex digits behind a "{" token up to and with the "}", which becomes the token's end;
    /// bytes (if given) takes what they stand for.
    void ReadBlock(std::string* bytes);

    /// Throws EBadInput that names the file and the line of the token, or the line given.
    [[noreturn]] void Fail(const std::string& problem) const { FailAt(line_, problem); }
    [[noreturn]] void FailAt(int line, const std::string& problem) const;

  private:
    void SkipBlanks();
    void ReadName();
    void ReadNumber();
    void ReadDecimal();
    bool IsInfinity() const;
    void ReadString();
    void ReadQuoted();
    void ReadCode();
    void ReadHexDigits(std::string* bytes);
    void SkipWhile(int classes);

    const std::string& text_;
    const std::string& fileName_;
    const std::size_t limit_;
    std::size_t begin_;
    std::size_t end_;
    int line_;
    TFormToken kind_ = TFormToken::End;
    bool afterLineBreak_ = false;
};

}  // namespace tml
