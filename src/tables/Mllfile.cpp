#include "tables/Mllfile.h"

#include <algorithm>
#include <charconv>

#include "base/Counted.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/States.h"

namespace tml {
namespace {

constexpr std::string_view kOptions = "Options";
constexpr std::string_view kNames = "Language names - for internal use only!";
constexpr std::string_view kLanguages = "Languages";
constexpr std::string_view kStates = "States";
constexpr std::string_view kExtended = "ExtendedTranslations";

struct TSectionName {
    TFormAddress Address;
    std::string Part;  ///< "" for the head of the form
};

/// None for a section that is no form's.
std::optional<TSectionName> SplitName(std::string_view name) {
    const std::size_t project = name.find('/');
    if (project == std::string_view::npos) return std::nullopt;
    const std::size_t form = std::min(name.find('/', project + 1), name.size());
    return TSectionName{
        {std::string(name.substr(0, project)), std::string(name.substr(project + 1, form - project - 1))},
        std::string(name.substr(std::min(form + 1, name.size())))};
}

std::string NameOf(const TFormAddress& form) {
    return form.Project + '/' + form.Form;
}

std::string NameOf(const TFormAddress& form, std::string_view part) {
    return NameOf(form) + '/' + std::string(part);
}

std::pair<std::string, std::string> Setting(std::string_view line) {
    const std::size_t equals = std::min(line.find('='), line.size());
    return {std::string(Trim(line.substr(0, equals))),
            std::string(Trim(line.substr(std::min(equals + 1, line.size()))))};
}

std::string Quoted(const std::string& delimiter) {
    const bool isPlain = Trim(delimiter) == delimiter && delimiter.front() != '"' && delimiter.back() != '"';
    return isPlain ? delimiter : '"' + delimiter + '"';
}

/// Columns as they are written.
std::string PlainColumns(std::string_view columns) {
    return TStringList::FromCommaText(columns).CommaText();
}

std::string Unquoted(std::string_view value) {
    const bool isQuoted = value.size() > 2 && value.front() == '"' && value.back() == '"';
    return std::string(isQuoted ? value.substr(1, value.size() - 2) : value);
}

/// -1 for a text that is no number.
int NumberOf(std::string_view text) {
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : -1;
}

const TTableKind* FindKind(std::string_view property) {
    const auto* found = std::find_if(kTableKinds.begin(), kTableKinds.end(), [&](const TTableKind& kind) {
        return SameText(kind.Property, property);
    });
    return found == kTableKinds.end() ? nullptr : found;
}

/// The parts of a key "a:b:c"; the last holds the rest.
std::vector<std::string> SplitKey(std::string_view key, int count) {
    std::vector<std::string> parts;
    while (static_cast<int>(parts.size()) + 1 < count) {
        const std::size_t colon = std::min(key.find(':'), key.size());
        parts.emplace_back(key.substr(0, colon));
        key.remove_prefix(std::min(colon + 1, key.size()));
    }
    parts.emplace_back(key);
    return parts;
}

/// About as many bytes as the table's lines have.
std::size_t SizeOf(const TTable& table) {
    constexpr std::size_t kBetween = 8;  // delimiters and some escapes
    std::size_t size = 0;
    for (const TTableEntry& entry : table.Entries()) {
        size += entry.Key.size();
        for (const TTableValue& value : entry.Values)
            size += value.Text.size() + kBetween;
    }
    return size;
}

}  // namespace

/// Lines are told apart as TMllDocument does, and the last delimiter counts as it does to a reader.
std::string DelimiterOfMll(std::string_view bytes) {
    const std::string options = '[' + std::string(kOptions) + ']';
    std::string delimiter;
    if (bytes.starts_with(kMllMark)) bytes.remove_prefix(kMllMark.size());
    for (bool isOptions = false, isOver = false; !bytes.empty() && !isOver;) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        const std::string_view line = Trim(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        const bool isHeading = line.starts_with('[');
        isOver = isHeading && isOptions;
        if (isHeading) isOptions = SameText(line, options);
        if (!isOptions || isHeading || line.starts_with(';')) continue;
        const auto [name, value] = Setting(line);
        if (SameText(name, "Delimiter")) delimiter = Unquoted(value);
    }
    return delimiter;
}

bool MayBeMll(std::string_view bytes) {
    if (bytes.starts_with(kMllMark)) bytes.remove_prefix(kMllMark.size());
    while (Trim(bytes).starts_with(';'))
        bytes.remove_prefix(std::min(bytes.find('\n', bytes.find(';')), bytes.size()));
    return Trim(bytes).empty() || Trim(bytes).starts_with('[');
}

TMllFile::TMllFile(std::string bytes, const std::string& fileName, const std::string& delimiter)
    : fileName_(fileName), document_(std::move(bytes), fileName), fields_(delimiter) {
    const bool isNew = document_.BytesRead().empty();
    const std::string named = isNew ? delimiter : ReadOptions();
    Use(named.empty() ? delimiter : named);
    ReadNames();
    if (delimiter.find_first_of("\r\n") != std::string::npos || !IsValidUtf8(delimiter))
        Refuse(0, "a delimiter has to stand in one line, as UTF-8", "Choose another one");
    if (named.empty() && !isNew) ExpectForms();
    if (!delimiter.empty() && delimiter != delimiter_) WriteAnew(delimiter);
}

/// The delimiter of a file that names none may be another one than that of its lines.
void TMllFile::ExpectForms() const {
    if (delimiter_.empty())
        Refuse(document_.Find(kOptions)->Number, "the section \"Options\" has no delimiter",
               "Add the line \"Delimiter=...\"");
    for (const TFormAddress& form : Forms())
        Read(form);
}

/// Blanks at a line's end are no text, for those of a text are escaped.
void TMllFile::Use(const std::string& delimiter) {
    delimiter_ = delimiter;
    fields_ = TFileFields(delimiter_);
    document_.SetBlanksCount(delimiter_.ends_with(' ') || delimiter_.ends_with('\t'));
}

/// The delimiter; "" where the file names none.
std::string TMllFile::ReadOptions() {
    const TSection* options = document_.Find(kOptions);
    if (options == nullptr)
        Refuse(1, "the section \"Options\" is missing", "Choose a translation file (.mll)");
    std::string delimiter;
    version_ = 0;
    for (const TEntryLine& line : document_.Entries(*options)) {
        const auto [name, value] = Setting(line.Content);
        if (SameText(name, "Version")) version_ = NumberOf(value);
        if (SameText(name, "Delimiter")) delimiter = Unquoted(value);
        if (version_ < 0) Refuse(line.Number, "the version is no number", "Restore the line \"Version=1\"");
    }
    return delimiter;
}

void TMllFile::ReadNames() {
    const TSection* names = document_.Find(kNames);
    if (names == nullptr) return;
    for (const TEntryLine& line : document_.Entries(*names)) {
        std::pair<std::string, std::string> row = Setting(line.Content);
        if (std::any_of(names_.begin(), names_.end(),
                        [&](const auto& one) { return one.first == row.first; }))
            Refuse(line.Number, "a language has the number " + row.first + " already",
                   "Delete one of the two lines");
        names_.push_back(std::move(row));
    }
}

void TMllFile::Refuse(int line, const std::string& problem, const std::string& remedy) const {
    throw EBadInput(fileName_, line, problem, remedy);
}

std::vector<TFormAddress> TMllFile::Forms() const {
    std::vector<TFormAddress> forms;
    for (const TSection& section : document_.Sections())
        if (auto name = SplitName(section.Name); name && name->Part.empty()) forms.push_back(name->Address);
    return forms;
}

TStringList TMllFile::Languages() const {
    TStringList languages;
    for (const auto& [key, name] : names_)
        languages.Add(name);
    return languages;
}

std::optional<TLangTexts> TMllFile::Read(const TFormAddress& form) const {
    const TSection* head = document_.Find(NameOf(form));
    if (head == nullptr) return std::nullopt;
    TLangTexts read = TextsIn(ReadLanguages(*head));
    const int languages = read.Languages.Count();
    for (TTable& table : read.Tables)
        if (const TSection* section = document_.Find(NameOf(form, KindOf(table.Type()).Property)))
            ReadTable(*section, languages, table);
    if (const TSection* section = document_.Find(NameOf(form, kStates))) ReadStates(*section, read);
    if (const TSection* section = document_.Find(NameOf(form, kExtended)))
        read.Extended = ReadExtended(*section, languages);
    return read;
}

TStringList TMllFile::ReadLanguages(const TSection& head) const {
    TStringList languages;
    for (const TEntryLine& line : document_.Entries(head)) {
        const auto [name, columns] = Setting(line.Content);
        if (!SameText(name, kLanguages)) continue;
        for (const std::string& column : TStringList::FromCommaText(columns)) {
            const auto found = std::find_if(names_.begin(), names_.end(),
                                            [&](const auto& row) { return row.first == column; });
            if (found == names_.end())
                Refuse(line.Number, "the file names no language " + column,
                       "Add it to the section \"" + std::string(kNames) + "\"");
            if (std::find(languages.begin(), languages.end(), found->second) != languages.end())
                Refuse(line.Number, "the form names the language " + found->second + " twice",
                       "Give every column a language of its own");
            languages.Add(found->second);
        }
        return languages;
    }
    Refuse(head.Number, "the form names no languages", "Restore its line \"Languages=...\"");
}

TFileEntry TMllFile::ReadEntry(TEntryLine line, int fields) const {
    TFileEntry entry = fields_.Read(line.Content);
    if (entry.Fields.empty())
        Refuse(line.Number, entry.Key + " has no \"=\" behind it", "Put it between the key and its texts");
    const auto count = static_cast<int>(entry.Fields.size());
    if (count != fields)
        Refuse(line.Number,
               Format("%s has %s where %s expected", entry.Key, Counted(count, "text", "texts"),
                      Counted(fields, "is", "are")),
               Format("Put the delimiter %s between them, and %sn for a line break", delimiter_,
                      std::string(1, fields_.Mark())));
    return entry;
}

void TMllFile::ReadTable(const TSection& section, int languages, TTable& table) const {
    for (const TEntryLine& line : document_.Entries(section)) {
        TFileEntry entry = ReadEntry(line, languages);
        TTableEntry read{std::move(entry.Key), {}};
        read.Values.reserve(entry.Fields.size());
        for (std::string& text : entry.Fields)
            read.Values.push_back({std::move(text)});
        table.Append(std::move(read));
    }
}

void TMllFile::ReadStates(const TSection& section, TLangTexts& texts) const {
    for (const TEntryLine& line : document_.Entries(section)) {
        TFileEntry entry = fields_.Read(line.Content);
        const std::vector<std::string> key = SplitKey(entry.Key, 3);
        const TTableKind* kind = FindKind(key[0]);
        const int place = NumberOf(key[1]);
        entry.Fields.resize(2);
        const TValueMark mark = ValueMarkOf(entry.Fields[0]);
        const bool isKnown = mark != TValueMark::None;
        if (!isKnown && version_ > kTranslationFileVersion) continue;
        if (kind == nullptr || place < 2 || place > texts.Languages.Count() || !isKnown)
            Refuse(line.Number, "this is no state of a translation", "Delete the line");
        SetMark(texts, kind->Type, key[2], place, mark, entry.Fields[1]);
    }
}

std::vector<TExtendedItem> TMllFile::ReadExtended(const TSection& section, int languages) const {
    std::vector<TExtendedItem> extended;
    for (const TEntryLine& line : document_.Entries(section)) {
        TFileEntry entry = ReadEntry(line, languages);
        const std::vector<std::string> key = SplitKey(entry.Key, 2);
        extended.push_back({key[0], key[1], std::move(entry.Fields)});
    }
    return extended;
}

/// Sets what a section says: each setting's lines where they stand, but for such that say so already; a new
/// one behind what else there is.
void TMllFile::PutSettings(std::string_view section, const std::vector<TSetting>& settings,
                           std::string_view behind) {
    std::string lines;
    std::vector<bool> isThere(settings.size());
    const auto put = [&](const TSetting& setting) {
        (((lines += setting.Name) += '=') += setting.Value) += '\n';
    };
    if (const TSection* present = document_.Find(section))
        for (const TEntryLine& line : document_.Entries(*present)) {
            const auto old = Setting(line.Content);
            const auto set = std::find_if(settings.begin(), settings.end(),
                                          [&](const TSetting& one) { return SameText(one.Name, old.first); });
            if (set != settings.end()) isThere[static_cast<std::size_t>(set - settings.begin())] = true;
            if (set == settings.end() || set->Plain(old.second) == set->Plain(set->Value))
                (lines += line.Content) += '\n';
            else
                put(*set);
        }
    for (std::size_t i = 0; i < settings.size(); ++i)
        if (!isThere[i]) put(settings[i]);
    document_.Put(section, lines, behind);
}

void TMllFile::ExpectWritable() const {
    if (version_ > kTranslationFileVersion)
        Refuse(0, "the file is of a newer version", "Save into another file, or with a newer program");
}

void TMllFile::WriteOptions() {
    ExpectWritable();
    PutSettings(kOptions, {{"Version", std::to_string(kTranslationFileVersion)},
                           {"Delimiter", Quoted(delimiter_), Unquoted}});
}

/// The largest number of a language, be it that only a form's line names it.
int TMllFile::LastColumn() const {
    constexpr int kLargest = 1'000'000;  // who goes beyond has not counted languages
    int last = 0;
    const auto meet = [&](const std::string& key) {
        if (const int number = NumberOf(key); number < kLargest) last = std::max(last, number);
    };
    for (const auto& [key, name] : names_)
        meet(key);
    for (const TSection& section : document_.Sections())
        if (const auto form = SplitName(section.Name); form && form->Part.empty())
            for (const TEntryLine& line : document_.Entries(section))
                if (const auto [name, columns] = Setting(line.Content); SameText(name, kLanguages))
                    for (const std::string& column : TStringList::FromCommaText(columns))
                        meet(column);
    return last;
}

/// Columns of the languages, which are added to the file's names where they are new. One that the file spells
/// otherwise is that one, unless the form has it, too.
std::string TMllFile::ColumnsOf(const TStringList& languages) {
    TStringList plain;
    for (const std::string& language : languages)
        plain.Add(PlainLanguageName(language));
    TStringList columns;
    for (const std::string& language : plain) {
        auto found = std::find_if(names_.begin(), names_.end(),
                                  [&](const auto& row) { return row.second == language; });
        if (found == names_.end())
            found = std::find_if(names_.begin(), names_.end(), [&](const auto& row) {
                return SameText(row.second, language) && columns.IndexOf(row.first) < 0 &&
                       std::find(plain.begin(), plain.end(), row.second) == plain.end();
            });
        if (found == names_.end())
            found = names_.insert(names_.end(), {std::to_string(LastColumn() + 1), language});
        columns.Add(found->first);
    }
    return columns.CommaText();
}

void TMllFile::PutNames() {
    std::vector<TSetting> names;
    names.reserve(names_.size());
    for (const auto& [key, name] : names_)
        names.push_back({key, name});
    PutSettings(kNames, names, kOptions);
}

void TMllFile::Put(const TFormAddress& form, const TLangTexts& texts) {
    WriteOptions();
    const std::string columns = ColumnsOf(texts.Languages);
    PutNames();

    std::string last = NameOf(form);
    PutSettings(last, {{std::string(kLanguages), columns, PlainColumns}});
    const auto put = [&](std::string_view part, const std::string& lines) {
        const std::string name = NameOf(form, part);
        document_.Put(name, lines, last);
        if (!lines.empty()) last = name;
    };
    for (const TTable& table : texts.Tables)
        put(KindOf(table.Type()).Property, LinesOf(table, texts.Languages.Items().size()));
    put(kStates, StateLinesOf(texts));
    put(kExtended, ExtendedLinesOf(texts));
}

std::string TMllFile::LinesOf(const TTable& table, std::size_t languages) const {
    std::string lines;
    lines.reserve(SizeOf(table));
    std::vector<std::string_view> fields;
    for (const TTableEntry& entry : table.Entries()) {
        fields.assign(languages, {});
        for (std::size_t i = 0; i < std::min(languages, entry.Values.size()); ++i)
            fields[i] = entry.Values[i].Text;
        fields_.AppendLine(lines, entry.Key, fields);
    }
    return lines;
}

std::string TMllFile::StateLinesOf(const TLangTexts& texts) const {
    std::string lines;
    ForEachMarked(texts, [&](TStringsType type, const std::string& key, int place, const TTableValue& value) {
        std::vector<std::string_view> fields = {NameOf(value.Mark)};
        if (!value.Former.empty()) fields.emplace_back(value.Former);
        fields_.AppendLine(
            lines, std::string(KindOf(type).Property) + ':' + std::to_string(place) + ':' + key, fields);
    });
    return lines;
}

std::string TMllFile::ExtendedLinesOf(const TLangTexts& texts) const {
    std::string lines;
    for (const TExtendedItem& item : texts.Extended) {
        std::vector<std::string_view> fields(item.Values.begin(), item.Values.end());
        fields.resize(texts.Languages.Items().size());
        fields_.AppendLine(lines, item.Component + ':' + item.Property, fields);
    }
    return lines;
}

/// With another delimiter; a line that has no "=" has no fields either, and stays.
void TMllFile::WriteAnew(const std::string& delimiter) {
    const TFileFields fields(delimiter);
    std::vector<std::pair<std::string, std::string>> sections;
    for (const TSection& section : document_.Sections()) {
        const auto name = SplitName(section.Name);
        if (!name || name->Part.empty()) continue;
        std::string& lines = sections.emplace_back(section.Name, std::string()).second;
        for (const TEntryLine& line : document_.Entries(section))
            if (const TFileEntry entry = fields_.Read(line.Content); entry.Fields.empty())
                (lines += line.Content) += '\n';
            else
                fields.AppendLine(lines, entry.Key, {entry.Fields.begin(), entry.Fields.end()});
    }
    Use(delimiter);
    WriteOptions();
    for (const auto& [name, lines] : sections)
        document_.Put(name, lines, {});
}

}  // namespace tml
