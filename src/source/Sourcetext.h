#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Encodings.h"
#include "source/Language.h"
#include "source/Outline.h"
#include "source/Tokens.h"

namespace tml {

/// A comment or a Pascal compiler directive ("{$...}"); byte offsets, 0-based, End behind the closer.
/// A line comment ends in front of its line break.
struct TComment {
    std::size_t Begin = 0;
    std::size_t End = 0;
    bool IsDirective = false;
};

/// What the compiler takes for one string literal: a Pascal literal with its doubled delimiters, or
/// adjacent C++ literals with their prefixes and an enclosing _T( ) or TEXT( ). Byte offsets, 0-based.
struct TLiteral {
    std::size_t Begin = 0;  ///< of the span that a call replaces, prefix and macro included
    std::size_t End = 0;    ///< behind that span
    std::size_t Open = 0;   ///< the first opening delimiter
    std::size_t BodyBegin =
        0;  ///< behind the first opening delimiter (raw and ''' texts: behind the whole opener)
    std::size_t BodyEnd = 0;   ///< in front of the last closing delimiter
    bool InComment = false;    ///< a closed pair of delimiters inside a comment
    bool InDirective = false;  ///< inside a Pascal directive or on a C++ preprocessor line
    bool CodeBefore = false;   ///< a character code (#13, ^M) touches it in front
    bool CodeAfter = false;    ///< a character code touches it behind

    std::size_t RawLength() const { return BodyEnd - BodyBegin; }
};

/// A source text with all that is read from it: comments and literals at once, tokens and outline when they
/// are first asked for. Whoever reads the text is handed this one object, so that it is read once; another
/// text is another object. To be used by one thread at a time.
class TSourceText {
  public:
    /// The text (UTF-8) is not copied and must outlive the object. fileName serves messages only.
    TSourceText(std::string_view text, const TLanguage& language, std::string fileName = {});
    TSourceText(std::string&& text, const TLanguage& language, std::string fileName = {}) = delete;
    /// Keeps the text alive. The file's name chooses the language.
    TSourceText(std::shared_ptr<const std::string> text, const std::string& fileName,
                TByteEncodings byteEncodings = ByteEncodingsOf({}, {}));
    TSourceText(const TSourceText&) = delete;
    TSourceText& operator=(const TSourceText&) = delete;

    std::string_view Text() const { return text_; }
    const TLanguage& Language() const { return *language_; }
    const std::string& FileName() const { return fileName_; }
    /// Of the file that the text comes from.
    const TByteEncodings& ByteEncodings() const { return byteEncodings_; }

    /// In the order of the text; a directive is among them.
    const std::vector<TComment>& Comments() const { return comments_; }
    /// In the order of the text; pairs inside comments are among them. Literals without an end are not.
    const std::vector<TLiteral>& Literals() const { return literals_; }
    /// True when a mode or directive lets Pascal comments nest somewhere in the text.
    bool CommentsNest() const { return commentsNest_; }
    /// See Tokenize.
    const std::vector<TToken>& Tokens() const;
    /// The same without comments and directives.
    const std::vector<TToken>& CodeTokens() const;
    /// See ReadOutline.
    const std::vector<TRegion>& Outline() const;

    /// True when the 0-based byte offset lies in a comment, its delimiters included; a directive is none.
    bool IsCommentAt(std::size_t offset) const;
    /// 1-based line of a byte offset, for messages; the cost grows with the offset.
    int LineOf(std::size_t offset) const;

  private:
    std::shared_ptr<const std::string> owned_;
    std::string_view text_;
    const TLanguage* language_;
    std::string fileName_;
    TByteEncodings byteEncodings_ = ByteEncodingsOf({}, {});
    std::vector<TComment> comments_;
    std::vector<TLiteral> literals_;
    bool commentsNest_ = false;
    mutable std::optional<std::vector<TToken>> tokens_;
    mutable std::optional<std::vector<TToken>> codeTokens_;
    mutable std::optional<std::vector<TRegion>> outline_;
};

/// A text that several hold together.
using TSharedSource = std::shared_ptr<const TSourceText>;

/// Reads a text that the object keeps; the file's name chooses the language.
TSharedSource ReadSource(std::string text, const std::string& fileName,
                         TByteEncodings byteEncodings = ByteEncodingsOf({}, {}));
/// Reads another text of the same file.
TSharedSource ReadSource(std::string text, const TSourceText& former);

inline std::string_view TextOf(const TSourceText& source, const TToken& token) {
    return source.Text().substr(token.Begin, token.End - token.Begin);
}

}  // namespace tml
