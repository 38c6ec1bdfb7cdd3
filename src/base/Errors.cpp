#include "base/Errors.h"

namespace tml {
namespace {

std::string Message(const std::string& file, int line, const std::string& problem,
                    const std::string& remedy) {
    std::string result = file;
    if (line > 0) result += ":" + std::to_string(line);
    if (!result.empty()) result += ": ";
    result += problem;
    if (!remedy.empty()) result += ". " + remedy;
    return result;
}

}  // namespace

EBadInput::EBadInput(const std::string& file, int line, const std::string& problem, const std::string& remedy)
    : std::runtime_error(Message(file, line, problem, remedy)),
      file_(file),
      line_(line),
      problem_(Message({}, 0, problem, remedy)) {}

}  // namespace tml
