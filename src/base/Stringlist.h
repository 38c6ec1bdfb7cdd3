#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// An ordered list of strings with the rules of the suite: look-up ignores case, the list's text ends
/// every line with CR LF, comma text quotes an entry that holds a blank, a comma or a quote.
class TStringList {
  public:
    TStringList() = default;
    explicit TStringList(std::vector<std::string> items) : items_(std::move(items)) {}

    int Count() const { return static_cast<int>(items_.size()); }
    bool Empty() const { return items_.empty(); }
    const std::string& operator[](int index) const { return items_.at(static_cast<std::size_t>(index)); }
    void Set(int index, std::string text) { items_.at(static_cast<std::size_t>(index)) = std::move(text); }

    void Add(std::string text) { items_.push_back(std::move(text)); }
    void Insert(int index, std::string text) { items_.insert(items_.begin() + index, std::move(text)); }
    void Delete(int index) { items_.erase(items_.begin() + index); }
    void Clear() { items_.clear(); }
    /// Sorts without regard to case; equal entries keep their order.
    void Sort();

    /// Index of the first entry equal to text without regard to case, -1 when there is none.
    int IndexOf(std::string_view text) const;

    /// All entries, each followed by CR LF.
    std::string Text() const;
    /// Replaces all entries by the lines of text (CR LF, LF or CR end a line; a last line without an end
    /// counts, an empty one behind the last end does not).
    void SetText(std::string_view text);
    static TStringList FromText(std::string_view text);

    /// All entries in one line, separated by commas.
    std::string CommaText() const;
    /// Reads comma text; separates at commas only, never at blanks; blanks around an entry are dropped.
    void SetCommaText(std::string_view text);
    static TStringList FromCommaText(std::string_view text);

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }
    const std::vector<std::string>& Items() const { return items_; }

    bool operator==(const TStringList&) const = default;

  private:
    std::vector<std::string> items_;
};

}  // namespace tml
