#pragma once

#include <string_view>

namespace tml {

// The words of Pascal that give a unit its structure: enumerator, spelling in capitals; in order.
#define TML_PASCAL_WORDS(X)             \
    X(Asm, "ASM")                       \
    X(Begin, "BEGIN")                   \
    X(Case, "CASE")                     \
    X(Class, "CLASS")                   \
    X(Const, "CONST")                   \
    X(Constructor, "CONSTRUCTOR")       \
    X(Contains, "CONTAINS")             \
    X(Destructor, "DESTRUCTOR")         \
    X(DispInterface, "DISPINTERFACE")   \
    X(End, "END")                       \
    X(Exports, "EXPORTS")               \
    X(Finalization, "FINALIZATION")     \
    X(Function, "FUNCTION")             \
    X(Implementation, "IMPLEMENTATION") \
    X(Initialization, "INITIALIZATION") \
    X(Interface, "INTERFACE")           \
    X(Label, "LABEL")                   \
    X(Object, "OBJECT")                 \
    X(Of, "OF")                         \
    X(Operator, "OPERATOR")             \
    X(Packed, "PACKED")                 \
    X(Private, "PRIVATE")               \
    X(Procedure, "PROCEDURE")           \
    X(Property, "PROPERTY")             \
    X(Protected, "PROTECTED")           \
    X(Public, "PUBLIC")                 \
    X(Published, "PUBLISHED")           \
    X(Record, "RECORD")                 \
    X(Requires, "REQUIRES")             \
    X(ResourceString, "RESOURCESTRING") \
    X(Strict, "STRICT")                 \
    X(ThreadVar, "THREADVAR")           \
    X(Try, "TRY")                       \
    X(Type, "TYPE")                     \
    X(Uses, "USES")                     \
    X(Var, "VAR")

enum class TPascalWord {
    None,
#define TML_PASCAL_WORD(name, spelling) name,
    TML_PASCAL_WORDS(TML_PASCAL_WORD)
#undef TML_PASCAL_WORD
};

/// The word that a name is, in any case; None for all other names.
TPascalWord PascalWordOf(std::string_view name);

/// True for what may follow a routine's head or stand in it: virtual, stdcall, external, message ...
bool IsRoutineDirective(std::string_view name);

/// What a directive ("{$IFDEF X}") does to the depth of conditions: 1 opens one, -1 closes one, else 0.
int ConditionStep(std::string_view directive);

}  // namespace tml
