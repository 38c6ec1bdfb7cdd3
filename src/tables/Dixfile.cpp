// The .dix file: XML in UTF-8, its lines as docs/dictionary.md says. What is not known, such as comments, is
// kept where it stands; text outside of the elements for it is an error, as is a file that is cut off.
#include "tables/Dixfile.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

#include "base/Encodings.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr const char* kRoot = "DICTIONARY";
constexpr const char* kVersion = "VERSION";
constexpr const char* kHead = "HEAD";
constexpr const char* kLanguage = "LANGUAGE";
constexpr const char* kEntry = "ENTRY";
constexpr const char* kText = "TEXT";
constexpr const char* kChar = "CHAR";
constexpr const char* kCode = "CODE";

constexpr const char* kChoose = "Choose a dictionary, or repair the file";
constexpr std::string_view kUnreadable = "\xEF\xBF\xBD";  ///< in place of what cannot be decoded

/// Every character counts, so that blanks alone are a text, too.
constexpr unsigned kParsing = pugi::parse_escapes | pugi::parse_eol | pugi::parse_cdata |
                              pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype |
                              pugi::parse_ws_pcdata;

/// True for what XML can hold by no means but an element of our own.
constexpr bool IsForbidden(char32_t c) {
    return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c == 0xFFFE || c == 0xFFFF;
}

bool IsLanguageName(const std::string& name) {
    return !name.empty() && std::none_of(name.begin(), name.end(),
                                         [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

bool IsNumberIn(const char* text, int& number, int base = 10) {
    const char* const end = text + std::string_view(text).size();
    return std::from_chars(text, end, number, base).ptr == end && end != text;
}

class TDixReader {
  public:
    TDixReader(const std::string& bytes, const std::string& fileName) : fileName_(fileName) {
        const TEncoding encoding = DetectEncoding(bytes, {});
        text_ = std::string_view(bytes).substr(encoding.Bom.size());
        if (encoding.Name.starts_with("UTF-16")) Recode(encoding);
    }

    TDictionary Read() {
        Parse();
        const pugi::xml_node root = document_.document_element();
        if (std::string_view(root.name()) != kRoot)
            Fail(root, Format("no dictionary: the root element is not \"%s\"", kRoot));
        if (!IsNumberIn(root.attribute(kVersion).value(), dictionary_.Version) || dictionary_.Version < 1)
            Fail(root, "the dictionary names no version");
        const std::size_t end = text_.find('\n');
        if (end != std::string_view::npos && end > 0 && text_[end - 1] == '\r') dictionary_.LineEnd = "\r\n";
        ReadHead(root);
        ReadEntries(root);
        return std::move(dictionary_);
    }

  private:
    [[noreturn]] void FailAt(std::size_t offset, const std::string& problem) const {
        const std::string_view before = text_.substr(0, offset);
        const auto lines = std::count(before.begin(), before.end(), '\n');
        throw EBadInput(fileName_, static_cast<int>(lines) + 1, problem, kChoose);
    }
    [[noreturn]] void Fail(const pugi::xml_node& node, const std::string& problem) const {
        const std::ptrdiff_t offset = node.offset_debug();
        FailAt(offset < 0 ? 0 : static_cast<std::size_t>(offset), problem);
    }

    void Recode(const TEncoding& encoding) {
        const bool isText = Decode(encoding, text_, recoded_);
        text_ = recoded_;
        if (!isText) FailAt(text_.find(kUnreadable), Format("the dictionary is not in %s", encoding.Name));
    }

    void Parse() {
        if (const std::size_t zero = text_.find('\0'); zero != std::string_view::npos)
            FailAt(zero, "no dictionary: the file is binary, or in UTF-16 without a byte order mark");
        if (!IsValidUtf8(text_)) FailAt(FirstNonUtf8(), "the dictionary is not in UTF-8");
        const auto result = document_.load_buffer(text_.data(), text_.size(), kParsing, pugi::encoding_utf8);
        if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
        if (!result)
            FailAt(static_cast<std::size_t>(result.offset), Format("no valid XML: %s", result.description()));
        for (const pugi::xml_node node : document_)
            if (node.type() == pugi::node_doctype)
                Fail(document_.document_element(), "a dictionary has no document type");
    }

    std::size_t FirstNonUtf8() const {
        for (std::size_t pos = 0; pos < text_.size();) {
            const std::size_t begin = pos;
            if (DecodeCodePoint(text_, pos) == 0xFFFD && !IsValidUtf8(text_.substr(begin, pos - begin)))
                return begin;
        }
        return text_.size();
    }

    void ReadHead(const pugi::xml_node& root) {
        const pugi::xml_node head = root.child(kHead);
        if (!head) Fail(root, "the dictionary has no head with its languages");
        for (const pugi::xml_node node : head) {
            if (node.name() == std::string_view(kLanguage))
                AddLanguage(node);
            else
                dictionary_.InHead += Unknown(node);
        }
        if (dictionary_.Languages.Empty()) Fail(head, "the dictionary names no language");
    }

    void AddLanguage(const pugi::xml_node& node) {
        const std::string name = TextOf(node);
        if (!IsLanguageName(name))
            Fail(node, "a language without a name, or with a character that none can have");
        if (dictionary_.Languages.IndexOf(name) >= 0)
            Fail(node, Format("the language %s stands twice in the head", name));
        dictionary_.Languages.Add(name);
    }

    void ReadEntries(const pugi::xml_node& root) {
        bool hasHead = false;
        for (const pugi::xml_node node : root) {
            if (node.name() == std::string_view(kHead)) {
                if (std::exchange(hasHead, true)) Fail(node, "the dictionary has two heads");
            } else if (node.name() == std::string_view(kEntry)) {
                dictionary_.Entries.push_back(EntryOf(node));
                dictionary_.Entries.back().Before = std::exchange(dictionary_.Behind, {});
            } else {
                dictionary_.Behind += Unknown(node);
            }
        }
    }

    TDictionaryEntry EntryOf(const pugi::xml_node& node) const {
        TDictionaryEntry entry;
        for (const pugi::xml_node child : node) {
            if (child.name() != std::string_view(kText)) {
                entry.Inside += Unknown(child);
                continue;
            }
            const char* const name = child.attribute(kLanguage).value();
            const int language = dictionary_.Languages.IndexOf(name);
            if (language < 0) Fail(child, Format("the head names no language \"%s\"", name));
            if (!entry.Text(language).empty()) Fail(child, Format("two texts in %s in one entry", name));
            if (const std::string text = TextOf(child); !text.empty()) entry.SetText(language, text);
        }
        return entry;
    }

    std::string TextOf(const pugi::xml_node& node) const {
        std::string text;
        for (const pugi::xml_node part : node) {
            if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) {
                text += part.value();
                continue;
            }
            int code = 0;
            const bool isChar = part.name() == std::string_view(kChar) &&
                                IsNumberIn(part.attribute(kCode).value(), code) && code >= 0;
            if (!isChar || !IsForbidden(static_cast<char32_t>(code)))
                Fail(part.name()[0] == '\0' ? node : part,
                     Format("a text holds only characters and %s elements", kChar));
            AppendCodePoint(text, static_cast<char32_t>(code));
        }
        return text;
    }

    /// As lines of XML; "" for the blanks between elements.
    std::string Unknown(const pugi::xml_node& node) const {
        const bool isText = node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
        if (isText && Trim(node.value()).empty()) return {};
        if (isText) Fail(node.parent(), Format("there is text outside of %s elements", kText));
        std::ostringstream out;
        node.print(out, "", pugi::format_raw | pugi::format_no_declaration);
        std::string lines;
        for (const char c : out.str())
            lines += c == '\r' ? std::string("&#13;") : std::string(1, c);
        return lines + "\n";
    }

    const std::string& fileName_;
    std::string recoded_;  ///< the text of a file in UTF-16
    std::string_view text_;
    pugi::xml_document document_;
    TDictionary dictionary_;
};

void AppendEscaped(std::string& out, char32_t c) {
    switch (c) {
        case '&':
            out += "&amp;";
            return;
        case '<':
            out += "&lt;";
            return;
        case '>':
            out += "&gt;";
            return;
        case '"':
            out += "&quot;";
            return;
        case '\t':
        case '\n':
        case '\r':
            out += Format("&#%d;", static_cast<int>(c));
            return;
        default:
            AppendCodePoint(out, c);
    }
}

/// True for what stands in XML as it is.
constexpr bool IsPlain(char c) {
    return c >= ' ' && c <= '~' && c != '&' && c != '<' && c != '>' && c != '"';
}

std::string EscapedXml(std::string_view text) {
    std::string out;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t begin = pos;
        while (pos < text.size() && IsPlain(text[pos]))
            ++pos;
        out += text.substr(begin, pos - begin);
        if (pos == text.size()) break;
        const char32_t c = DecodeCodePoint(text, pos);
        if (IsForbidden(c))
            out += Format("<%s %s=\"%d\"/>", kChar, kCode, static_cast<int>(c));
        else
            AppendEscaped(out, c);
    }
    return out;
}

std::string WithLineEnds(std::string lines, const std::string& lineEnd) {
    if (lineEnd == "\n") return lines;
    std::string text;
    for (const char c : lines)
        if (c == '\n')
            text += lineEnd;
        else
            text += c;
    return text;
}

void AppendEntry(std::string& lines, const TDictionaryEntry& entry, const std::vector<std::string>& names) {
    lines.append(entry.Before).append("<ENTRY>\n");
    for (std::size_t i = 0; i < entry.Texts.size() && i < names.size(); ++i)
        if (!entry.Texts[i].empty())
            lines.append("<TEXT LANGUAGE=\"")
                .append(names[i])
                .append("\">")
                .append(EscapedXml(entry.Texts[i]))
                .append("</TEXT>\n");
    lines.append(entry.Inside).append("</ENTRY>\n");
}

}  // namespace

void ExpectDix(const std::string& fileName) {
    if (SameText(ExtensionOf(fileName), ".dic"))
        throw EBadInput(fileName, 0, "a binary dictionary is known to the external dictionary tool alone",
                        "Save it as an XML dictionary (.dix) there");
}

TDictionary ReadDix(const std::string& bytes, const std::string& fileName) {
    return TDixReader(bytes, fileName).Read();
}

std::string NewerVersionNote(const TDictionary& dictionary, const std::string& fileName) {
    if (dictionary.Version <= kDictionaryVersion) return {};
    return Format(
        "%s: the dictionary is of version %d, this program knows version %d. It is read, what is newer in it "
        "is passed over; it cannot be saved",
        fileName, dictionary.Version, kDictionaryVersion);
}

std::string WriteDix(const TDictionary& dictionary, const std::string& fileName) {
    if (dictionary.Version > kDictionaryVersion)
        throw EBadInput(fileName, 0, "the dictionary is of a newer version, which is read and not written",
                        "Save it under another name with the program that wrote it, or use a newer one");
    std::string lines = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    lines += Format("<%s %s=\"%d\">\n<%s>\n", kRoot, kVersion, kDictionaryVersion, kHead);
    std::vector<std::string> names;
    for (const std::string& name : dictionary.Languages) {
        if (!IsLanguageName(name))
            throw EBadInput(fileName, 0, "a dictionary cannot name a language so: " + name);
        names.push_back(EscapedXml(name));
        lines += Format("<%s>%s</%s>\n", kLanguage, names.back(), kLanguage);
    }
    lines += dictionary.InHead + Format("</%s>\n", kHead);
    for (const TDictionaryEntry& entry : dictionary.Entries)
        AppendEntry(lines, entry, names);
    lines += dictionary.Behind + Format("</%s>\n", kRoot);
    return WithLineEnds(std::move(lines), dictionary.LineEnd);
}

}  // namespace tml
