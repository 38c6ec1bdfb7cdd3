#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace tml {

/// Input that cannot be used (a broken file, a wrong value). The message is meant for the person at the
/// keyboard: "Unit1.dfm:12: expected a value after '='. Remedy." Line is 1-based, 0 when there is none.
class EBadInput : public std::runtime_error {
  public:
    EBadInput(const std::string& file, int line, const std::string& problem, const std::string& remedy = {});

    const std::string& File() const { return file_; }
    int Line() const { return line_; }
    /// The message without file and line.
    const std::string& Problem() const { return problem_; }

  private:
    std::string file_;
    int line_;
    std::string problem_;
};

/// What is said of a file for whose work std::bad_alloc was thrown, and what to do about it.
inline constexpr const char* kNoMemory = "needs more memory than there is";
inline constexpr const char* kTooLarge = "Divide it, or leave it out";

/// A file operation that the system refused; same form of message, File() is the path.
class EFileError : public EBadInput {
  public:
    using EBadInput::EBadInput;
};

/// Ends an operation without a message; whoever runs a command catches it and stays silent.
class EmlLangSilent : public std::exception {
  public:
    const char* what() const noexcept override { return "operation ended"; }
};

/// A text that should be a decimal integer and is not.
class EConvertError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Steps that must all be tried, whatever the others come to: the first error is kept and thrown in the end.
class TAllSteps {
  public:
    template <typename TStep>
    void Try(TStep&& step) {
        try {
            step();
        } catch (...) {
            if (!first_) first_ = std::current_exception();
        }
    }
    void Finish() const {
        if (first_) std::rethrow_exception(first_);
    }

  private:
    std::exception_ptr first_;
};

}  // namespace tml
