#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

// The reasons why a call cannot stand where a literal stands: enumerator, short word, text for the person.
#define TML_ADVICES(X)                                                                                      \
    X(None, "", "")                                                                                         \
    X(Const, "const", "A constant's value cannot be a call.")                                               \
    X(ResourceString, "resourcestring", "A resource string's value cannot be a call.")                      \
    X(CaseLabel, "case-label", "A case label cannot be a call.")                                            \
    X(DefaultParameter, "default-parameter", "A parameter's default value cannot be a call.")               \
    X(Attribute, "attribute", "An attribute's argument cannot be a call.")                                  \
    X(Directive, "directive", "The compiler reads this text, the program does not.")                        \
    X(Include, "include", "This is the name of a file to include.")                                         \
    X(External, "external", "This name is for the linker or for messages.")                                 \
    X(Initialiser, "initialiser", "A variable's initial value cannot be a call.")                           \
    X(ArrayInitialiser, "array-initialiser", "The initial value of an array or record cannot hold a call.") \
    X(Guid, "guid", "This is an interface's identification.")                                               \
    X(Range, "range", "The bound of a range cannot be a call.")                                             \
    X(Set, "set", "An element of a set of characters cannot be a call.")                                    \
    X(OutsideMethod, "outside-method", "The component is not known outside the form's own methods.")        \
    X(NoForm, "no-form", "The form does not exist while a unit begins or ends.")                            \
    X(Declaration, "declaration", "A declaration cannot hold a call here.")                                 \
    X(UsesClause, "uses", "This is the name of a unit's file.")                                             \
    X(Assembler, "asm", "Assembler code cannot hold a call.")                                               \
    X(Comment, "comment", "The text stands in a comment.")                                                  \
    X(InnerComment, "inner-comment", "A comment between the parts of the text would be lost.")              \
    X(Macro, "macro", "The text is joined with a macro or another text at compile time.")                   \
    X(LinkageName, "linkage", "This is the name of a linkage.")                                             \
    X(Conditional, "conditional", "The constant is declared under a condition only.")                       \
    X(LocalConst, "local-const", "A routine's own constant can only be set inside it, at every call.")      \
    X(ConstantUse, "constant-use", "The compiler needs the constant's value in another declaration.")       \
    X(Character, "character", "A constant of a single character may be used as a Char.")                    \
    X(Unevaluated, "unevaluated", "The compiler needs the text itself here.")                               \
    X(ConstType, "const-type", "The constant's type would become string.")                                  \
    X(CharacterPointer, "char-pointer", "A character pointer is wanted here, and the call gives a string.") \
    X(NoBody, "no-body", "The routine has no body in Pascal that could set its constant.")                  \
    X(Joined, "joined", "The value is joined with another constant, whose text a call would lose.")

enum class TAdvice : std::uint8_t {
#define TML_ADVICE(name, word, text) name,
    TML_ADVICES(TML_ADVICE)
#undef TML_ADVICE
};

/// True where no option and no person takes the string: a call would lose a part of it, or would be made in
/// builds that have another text, or has no place to stand.
constexpr bool ForbidsCall(TAdvice advice) {
    return advice == TAdvice::Joined || advice == TAdvice::Conditional || advice == TAdvice::NoBody;
}

/// The short word for an advice, "" for None.
std::string_view AdviceWord(TAdvice advice);
/// The reason in words, "" for None.
std::string_view AdviceText(TAdvice advice);

/// Where the component can be reached.
struct TReach {
    std::string_view FormClass;  ///< the form's class; its methods reach the component
    bool Everywhere = false;     ///< the reference names the form, so that any code reaches it
    /// A C++ unit's header, which tells the methods without an object; nullptr when there is none.
    const TSourceText* Header = nullptr;
    bool GivesPointers = false;  ///< the method of the calls gives character pointers
};

/// The advice for each literal of the source, in the order of Literals().
std::vector<TAdvice> Advise(const TSourceText& source, const TReach& reach);

}  // namespace tml
