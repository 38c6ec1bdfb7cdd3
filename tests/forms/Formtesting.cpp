#include "forms/Formtesting.h"

#include <array>
#include <fstream>
#include <iterator>

#include "base/Format.h"

namespace tml::testing {

namespace {

std::string DumpItem(const std::vector<TFormProperty>& item) {
    std::string dump = "{";
    for (const TFormProperty& property : item) {
        if (dump.size() > 1) dump += ' ';
        dump += property.Name + "=" + Dump(property.Value);
    }
    return dump + "}";
}

std::string DumpString(const std::string& text) {
    std::string dump = "'";
    for (const char c : text) {
        const bool isControl = static_cast<unsigned char>(c) < ' ';
        dump += isControl ? "\\" + std::to_string(int{c}) : std::string(1, c);
    }
    return dump + "'";
}

std::string DumpHex(const std::string& bytes) {
    std::string dump;
    for (const char c : bytes) {
        dump += "0123456789ABCDEF"[static_cast<unsigned char>(c) >> 4];
        dump += "0123456789ABCDEF"[static_cast<unsigned char>(c) & 15];
    }
    return "{" + dump + "}";
}

std::string DumpItems(const TFormValue& value, char open, char close) {
    std::string dump(1, open);
    for (const TFormValue& item : value.Items)
        dump += (dump.size() > 1 ? " " : "") + Dump(item);
    return dump + close;
}

}  // namespace

std::string Dump(const TFormValue& value) {
    switch (value.Kind) {
        case TFormValueKind::Integer:
            return value.Text;
        case TFormValueKind::Float:
            return value.Text + "f";
        case TFormValueKind::String:
            return DumpString(value.Text);
        case TFormValueKind::Identifier:
            return value.Text;
        case TFormValueKind::Binary:
            return DumpHex(value.Text);
        case TFormValueKind::Set:
            return DumpItems(value, '[', ']');
        case TFormValueKind::List:
            return DumpItems(value, '(', ')');
        case TFormValueKind::Collection:
            break;
    }
    std::string dump = "<";
    for (const auto& item : value.Collection)
        dump += DumpItem(item);
    return dump + ">";
}

std::string Dump(const TFormNode& node) {
    constexpr std::array<const char*, 3> kWords{"object ", "inherited ", "inline "};
    std::string dump = kWords[static_cast<std::size_t>(node.Prefix())] + node.Name() + ":" + node.ClassName();
    if (node.ChildPosition()) dump += Format("[%d]", *node.ChildPosition());
    dump += '{';
    for (const std::string& name : node.PropertyNames())
        dump += name + "=" + Dump(*node.Find(name)) + " ";
    for (const auto& child : node.Children())
        dump += Dump(*child) + " ";
    if (dump.back() == ' ') dump.pop_back();
    return dump + "}";
}

std::string ReadTestFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tml::testing
