#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>

namespace tml {

/// Writes one JSON object to a line, field after field, straight to a stream: rows by the hundred
/// thousand need no tree.
class TJsonLine {
  public:
    explicit TJsonLine(std::ostream& out) : out_(out) { out_ << '{'; }
    ~TJsonLine() { out_ << "}\n"; }
    TJsonLine(const TJsonLine&) = delete;
    TJsonLine& operator=(const TJsonLine&) = delete;

    TJsonLine& Text(std::string_view name, std::string_view value);
    TJsonLine& Number(std::string_view name, std::int64_t value);
    TJsonLine& Null(std::string_view name);
    /// A list of texts.
    template <typename List>
    TJsonLine& Texts(std::string_view name, const List& values) {
        Name(name);
        out_ << '[';
        bool first = true;
        for (const auto& value : values) {
            if (!first) out_ << ',';
            first = false;
            Quoted(value);
        }
        out_ << ']';
        return *this;
    }

  private:
    void Name(std::string_view name);
    void Quoted(std::string_view text);

    std::ostream& out_;
    bool first_ = true;
};

}  // namespace tml
