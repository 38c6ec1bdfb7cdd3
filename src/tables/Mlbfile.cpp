#include "tables/Mlbfile.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Checksum.h"
#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kMagic = "TMLB";
constexpr std::size_t kHeaderSize = 14;

/// In the order of their numbers.
constexpr std::array kStoredMarks = {TValueMark::Stale, TValueMark::Touched, TValueMark::Same};

void AppendNumber(std::string& bytes, std::size_t number, int size) {
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

void AppendText(std::string& bytes, std::string_view text) {
    AppendNumber(bytes, text.size(), 4);
    bytes += text;
}

template <typename TTexts>
void AppendTexts(std::string& bytes, const TTexts& texts) {
    AppendNumber(bytes, texts.size(), 4);
    for (const std::string& text : texts)
        AppendText(bytes, text);
}

void AppendPart(std::string& bytes, char tag, std::string_view payload) {
    bytes += tag;
    AppendText(bytes, payload);
}

struct TDamaged {};

/// Takes what a file says is there from the front; TDamaged where it is not.
class TReader {
  public:
    explicit TReader(std::string_view bytes) : bytes_(bytes) {}

    bool AtEnd() const { return bytes_.empty(); }
    std::string_view Bytes(std::size_t size) {
        if (size > bytes_.size()) throw TDamaged();
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return taken;
    }
    std::uint32_t Number(std::size_t size = 4) {
        std::uint32_t number = 0;
        const std::string_view bytes = Bytes(size);
        for (std::size_t i = size; i > 0; --i)
            number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
        return number;
    }
    std::string Text() {
        const std::string_view text = Bytes(Number());
        if (!IsValidUtf8(text)) throw TDamaged();
        return std::string(text);
    }
    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (std::uint32_t count = Number(); count > 0; --count)
            texts.push_back(Text());
        return texts;
    }

  private:
    std::string_view bytes_;
};

std::string KeyOf(const TFormAddress& form) {
    return UpperCase(form.Project + '/' + form.Form);
}

struct TReadPart {
    char Tag;
    std::string_view Payload;
};

TReadPart ReadPart(TReader& reader) {
    const char tag = reader.Bytes(1).front();
    return {tag, reader.Bytes(reader.Number())};
}

TStringsType ReadType(TReader& reader) {
    const std::uint32_t ordinal = reader.Number(1);
    if (ordinal >= kTableKinds.size()) throw TDamaged();
    return kTableKinds[ordinal].Type;
}

/// So many texts, as there are languages.
std::vector<std::string> ReadColumns(TReader& reader, std::size_t languages) {
    std::vector<std::string> texts = reader.Texts();
    if (texts.size() != languages) throw TDamaged();
    return texts;
}

/// Tables stand in their order, and only those with entries; next is the ordinal of the least that may
/// follow.
void ReadTable(TReader reader, TLangTexts& texts, std::size_t& next) {
    const auto ordinal = static_cast<std::size_t>(ReadType(reader));
    std::uint32_t count = reader.Number();
    if (ordinal < next || count == 0) throw TDamaged();
    next = ordinal + 1;
    for (; count > 0; --count) {
        TTableEntry entry{reader.Text(), {}};
        for (std::string& text : ReadColumns(reader, texts.Languages.Items().size()))
            entry.Values.push_back({std::move(text)});
        texts.Tables[ordinal].Append(std::move(entry));
    }
}

/// A name without what the text kind separates names by.
std::string ReadName(TReader& reader, std::string_view separators) {
    std::string name = reader.Text();
    if (name.find_first_of(separators) != std::string::npos) throw TDamaged();
    return name;
}

void ReadStates(TReader reader, TLangTexts& texts) {
    while (!reader.AtEnd()) {
        const TStringsType type = ReadType(reader);
        const std::uint32_t place = reader.Number();
        const std::uint32_t state = reader.Number(1);
        const std::string key = reader.Text();
        const std::string former = reader.Text();
        if (state >= kStoredMarks.size()) continue;
        if (place < 2 || place > texts.Languages.Items().size()) throw TDamaged();
        SetMark(texts, type, key, static_cast<int>(place), kStoredMarks[state], former);
    }
}

void ReadExtended(TReader reader, TLangTexts& texts) {
    while (!reader.AtEnd()) {
        std::string component = ReadName(reader, ":");
        std::string property = reader.Text();
        texts.Extended.push_back(
            {std::move(component), std::move(property), ReadColumns(reader, texts.Languages.Items().size())});
    }
}

std::string UnknownParts(std::string_view form) {
    TReader reader(form);
    reader.Text();
    reader.Text();
    for (std::uint32_t columns = reader.Number(); columns > 0; --columns)
        reader.Number();
    std::string unknown;
    while (!reader.AtEnd()) {
        const TReadPart part = ReadPart(reader);
        if (std::string_view("TSX").find(part.Tag) == std::string_view::npos)
            AppendPart(unknown, part.Tag, part.Payload);
    }
    return unknown;
}

std::string BytesOf(const TTable& table, std::size_t languages) {
    std::string bytes;
    AppendNumber(bytes, static_cast<std::size_t>(table.Type()), 1);
    AppendNumber(bytes, table.Entries().size(), 4);
    for (const TTableEntry& entry : table.Entries()) {
        AppendText(bytes, entry.Key);
        AppendNumber(bytes, languages, 4);
        for (std::size_t i = 0; i < languages; ++i)
            AppendText(bytes, i < entry.Values.size() ? entry.Values[i].Text : std::string_view());
    }
    return bytes;
}

std::string BytesOfStates(const TLangTexts& texts) {
    std::string bytes;
    ForEachMarked(texts, [&](TStringsType type, const std::string& key, int place, const TTableValue& value) {
        const auto* mark = std::find(kStoredMarks.begin(), kStoredMarks.end(), value.Mark);
        AppendNumber(bytes, static_cast<std::size_t>(type), 1);
        AppendNumber(bytes, static_cast<std::size_t>(place), 4);
        AppendNumber(bytes, static_cast<std::size_t>(mark - kStoredMarks.begin()), 1);
        AppendText(bytes, key);
        AppendText(bytes, value.Former);
    });
    return bytes;
}

std::string BytesOf(const std::vector<TExtendedItem>& extended, std::size_t languages) {
    std::string bytes;
    for (const TExtendedItem& item : extended) {
        AppendText(bytes, item.Component);
        AppendText(bytes, item.Property);
        std::vector<std::string> values = item.Values;
        values.resize(languages);
        AppendTexts(bytes, values);
    }
    return bytes;
}

}  // namespace

TMlbFile::TMlbFile(std::string read, const std::string& fileName)
    : fileName_(fileName), read_(std::move(read)) {
    const std::string_view bytes = read_;
    if (bytes.empty()) return;
    if (!IsBegunBy(bytes) || bytes.size() < kHeaderSize)
        throw EBadInput(fileName_, 0, "the file is no binary translation file",
                        "Choose a file that was saved with the extension .mlb");
    TReader header(bytes.substr(kMagic.size(), kHeaderSize - kMagic.size()));
    version_ = static_cast<int>(header.Number(2));
    if (version_ == 0) Refuse("the file has no version");
    const std::uint32_t size = header.Number();
    const std::string_view content = bytes.substr(kHeaderSize);
    if (content.size() != size)
        Refuse("the file has " + std::to_string(content.size()) + " bytes of content where " +
               std::to_string(size) + " were saved");
    if (Crc32(content) != header.Number()) Refuse("the checksum of the file does not match its content");
    try {
        ReadContent(content);
    } catch (const TDamaged&) {
        Refuse("the file names more than it holds");
    }
}

bool TMlbFile::IsBegunBy(std::string_view bytes) {
    return bytes.starts_with(kMagic);
}

void TMlbFile::Refuse(const std::string& problem) const {
    throw EBadInput(fileName_, 0, problem, "Fetch the file anew, or save it again");
}

void TMlbFile::ReadContent(std::string_view content) {
    for (TReader reader(content); !reader.AtEnd();) {
        const TReadPart read = ReadPart(reader);
        TReader part(read.Payload);
        if (read.Tag == 'N') {
            for (const std::string& name : part.Texts())
                languages_.Add(PlainLanguageName(name));
            continue;
        }
        TFormAddress form;
        if (read.Tag == 'F') {
            form.Project = ReadName(part, "/\r\n");
            form.Form = ReadName(part, "/\r\n");
            if (!index_.emplace(KeyOf(form), parts_.size()).second)
                Refuse("the form " + form.Form + " stands in the file twice");
        }
        parts_.push_back({read.Tag, std::string(read.Payload), std::move(form)});
    }
}

std::vector<TFormAddress> TMlbFile::Forms() const {
    std::vector<TFormAddress> forms;
    for (const TPart& part : parts_)
        if (part.Tag == 'F') forms.push_back(part.Form);
    return forms;
}

std::optional<TLangTexts> TMlbFile::Read(const TFormAddress& form) const {
    const auto found = index_.find(KeyOf(form));
    if (found == index_.end()) return std::nullopt;
    try {
        return ReadForm(parts_[found->second]);
    } catch (const TDamaged&) {
        Refuse("the form " + form.Form + " names more than it holds");
    }
}

TLangTexts TMlbFile::ReadForm(const TPart& form) const {
    TReader reader(form.Payload);
    for (int i = 0; i < 2; ++i)
        reader.Text();  // project and form, as in the part's address
    TStringList languages;
    for (std::uint32_t count = reader.Number(); count > 0; --count) {
        const std::uint32_t column = reader.Number();
        if (column < 1 || column > languages_.Items().size()) throw TDamaged();
        const std::string& language = languages_[static_cast<int>(column) - 1];
        if (std::find(languages.begin(), languages.end(), language) != languages.end()) throw TDamaged();
        languages.Add(language);
    }
    TLangTexts read = TextsIn(std::move(languages));
    std::size_t nextTable = 0;
    TReader states({});  // of the tables' entries, wherever it stands
    while (!reader.AtEnd()) {
        const TReadPart part = ReadPart(reader);
        const TReader content(part.Payload);
        if (part.Tag == 'T') ReadTable(content, read, nextTable);
        if (part.Tag == 'S') states = content;
        if (part.Tag == 'X') ReadExtended(content, read);
    }
    ReadStates(states, read);
    return read;
}

void TMlbFile::ExpectWritable() const {
    if (version_ > kTranslationFileVersion)
        throw EBadInput(fileName_, 0, "the file is of a newer version",
                        "Save into another file, or with a newer program");
}

void TMlbFile::Put(const TFormAddress& form, const TLangTexts& texts) {
    ExpectWritable();
    version_ = kTranslationFileVersion;
    const auto [place, isNew] = index_.emplace(KeyOf(form), parts_.size());
    if (isNew) parts_.push_back({'F', {}, form});
    TPart& part = parts_[place->second];
    const std::string unknown = KeptParts(part);
    part.Payload = Payload(form, texts) + unknown;
    isChanged_ = true;
}

/// What the part holds besides what this version knows.
std::string TMlbFile::KeptParts(const TPart& form) const {
    if (form.Payload.empty()) return {};
    try {
        return UnknownParts(form.Payload);
    } catch (const TDamaged&) {
        Refuse("the form " + form.Form.Form + " names more than it holds");
    }
}

std::string TMlbFile::Payload(const TFormAddress& form, const TLangTexts& texts) {
    const std::size_t languages = texts.Languages.Items().size();
    std::string bytes;
    AppendText(bytes, form.Project);
    AppendText(bytes, form.Form);
    AppendNumber(bytes, languages, 4);
    for (const std::string& language : texts.Languages)
        AppendNumber(bytes, ColumnOf(PlainLanguageName(language)), 4);
    for (const TTable& table : texts.Tables)
        if (!table.Entries().empty()) AppendPart(bytes, 'T', BytesOf(table, languages));
    if (const std::string states = BytesOfStates(texts); !states.empty()) AppendPart(bytes, 'S', states);
    if (!texts.Extended.empty()) AppendPart(bytes, 'X', BytesOf(texts.Extended, languages));
    return bytes;
}

/// From 1; a language that is new is added.
std::size_t TMlbFile::ColumnOf(const std::string& language) {
    const auto& names = languages_.Items();
    const auto found = std::find(names.begin(), names.end(), language);
    const auto column = static_cast<std::size_t>(found - names.begin()) + 1;
    if (found == names.end()) languages_.Add(language);
    return column;
}

std::string TMlbFile::Bytes() const {
    std::string names;
    AppendTexts(names, languages_.Items());
    std::string content;
    AppendPart(content, 'N', names);
    for (const TPart& part : parts_)
        AppendPart(content, part.Tag, part.Payload);
    std::string bytes(kMagic);
    AppendNumber(bytes, static_cast<std::size_t>(version_), 2);
    AppendNumber(bytes, content.size(), 4);
    AppendNumber(bytes, Crc32(content), 4);
    return bytes + content;
}

}  // namespace tml
