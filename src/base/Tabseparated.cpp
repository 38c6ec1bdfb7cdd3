#include "base/Tabseparated.h"

#include <algorithm>

namespace tml {
namespace {

/// Reads one text from front to back.
class TReader {
  public:
    explicit TReader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }

    std::vector<std::string> Row() {
        std::vector<std::string> cells = {Cell()};
        while (!AtEnd() && text_[pos_] == '\t') {
            ++pos_;
            cells.push_back(Cell());
        }
        if (!AtEnd() && text_[pos_] == '\r') ++pos_;
        if (!AtEnd() && text_[pos_] == '\n') ++pos_;
        return cells;
    }

  private:
    std::string Cell() {
        std::string quoted;
        if (!AtEnd() && text_[pos_] == '"' && ReadQuoted(quoted)) return quoted;
        const std::size_t begin = pos_;
        pos_ = std::min(text_.find_first_of("\t\r\n", begin), text_.size());
        return std::string(text_.substr(begin, pos_ - begin));
    }

    /// False, and nothing is read, where the quote has no end or more text behind it.
    bool ReadQuoted(std::string& cell) {
        std::size_t pos = pos_ + 1;
        for (; pos < text_.size(); ++pos) {
            const bool isQuote = text_[pos] == '"';
            const bool isDoubled = isQuote && pos + 1 < text_.size() && text_[pos + 1] == '"';
            if (isQuote && !isDoubled) break;
            if (isDoubled) ++pos;
            cell += text_[pos];
        }
        if (pos >= text_.size()) return false;
        ++pos;
        if (pos < text_.size() && std::string_view("\t\r\n").find(text_[pos]) == std::string_view::npos)
            return false;
        pos_ = pos;
        return true;
    }

    std::string_view text_;
    std::size_t pos_ = 0;
};

std::string Quoted(const std::string& cell) {
    if (cell.find_first_of("\t\r\n\"") == std::string::npos) return cell;
    std::string quoted = "\"";
    for (const char c : cell) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

TCellRows ReadTabSeparated(std::string_view text) {
    TCellRows rows;
    for (TReader reader(text); !reader.AtEnd();)
        rows.push_back(reader.Row());
    return rows;
}

std::string WriteTabSeparated(const TCellRows& rows) {
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += '\t';
            text += Quoted(row[i]);
        }
        if (rows.size() > 1 || row.size() > 1) text += "\r\n";
    }
    return text;
}

}  // namespace tml
