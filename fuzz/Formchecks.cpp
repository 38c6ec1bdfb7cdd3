#include "Formchecks.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "Expect.h"
#include "base/Errors.h"
#include "forms/Formtree.h"

namespace tml::fuzz {
namespace {

constexpr const char* kFile = "Fuzz.dfm";

/// Without a code page it is guessed from the bytes, and a change may lead to another guess.
constexpr const char* kCodePage = "1252";

std::unique_ptr<TFormTree> Read(const std::string& bytes, const char* codePage = kCodePage) {
    try {
        return TFormTree::Parse(bytes, kFile, codePage);
    } catch (const EBadInput&) {
        return nullptr;
    }
}

std::unique_ptr<TFormTree> MustRead(const std::string& bytes, const char* claim) {
    auto tree = Read(bytes);
    if (tree == nullptr) std::fwrite(bytes.data(), 1, bytes.size(), stderr);
    Expect(tree != nullptr, claim);
    return tree;
}

std::vector<TFormNode*> NodesOf(TFormTree& tree) {
    std::vector<TFormNode*> nodes = {&tree.Root()};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        for (const auto& child : nodes[i]->Children())
            nodes.push_back(child.get());
    return nodes;
}

bool HasOnlyNumbers(const TFormValue& value) {
    if (value.Kind == TFormValueKind::Float && value.Text.find_first_of("nN") != std::string::npos)
        return false;
    for (const auto& item : value.Collection)
        for (const TFormProperty& property : item)
            if (!HasOnlyNumbers(property.Value)) return false;
    return std::all_of(value.Items.begin(), value.Items.end(), HasOnlyNumbers);
}

/// A binary form can hold numbers that are none (Nan, Inf); a text that shows them cannot be read as the
/// same form.
bool HasOnlyNumbers(const TFormNode& node) {
    const auto properties = node.Properties();
    return std::all_of(properties.begin(), properties.end(),
                       [](const TFormProperty& property) { return HasOnlyNumbers(property.Value); });
}

/// Text where the form is binary, binary where it is text. Gives none where it is refused: some value or
/// name has no place in the other kind.
std::optional<std::string> Converted(const TFormTree& tree) {
    try {
        return tree.IsBinary() ? tree.Text() : tree.Binary();
    } catch (const EBadInput&) {
        return std::nullopt;
    }
}

/// To the other kind, back, and so on: from the first conversion on, the text stays the same.
void CheckConversions(TFormTree& tree) {
    const auto nodes = NodesOf(tree);
    if (!std::all_of(nodes.begin(), nodes.end(), [](TFormNode* node) { return HasOnlyNumbers(*node); }))
        return;
    std::optional<std::string> converted = Converted(tree);
    std::string text;
    for (int i = 0; i < 4 && converted; ++i) {
        const auto other = MustRead(*converted, "a converted form can be read");
        if (!other->IsBinary()) {
            Expect(text.empty() || text == *converted, "conversions do not change the text again and again");
            text = *converted;
        }
        converted = Converted(*other);
        Expect(converted.has_value(), "what has been converted can be converted back");
    }
}

void CheckProperty(const std::string& bytes, std::size_t index, const TFormValue& value) {
    const auto tree = Read(bytes);
    TFormNode& node = *NodesOf(*tree).at(index);
    try {
        tree->SetProperty(node, "FuzzValue", value);
    } catch (const EBadInput&) {
        Expect(tree->Bytes() == bytes, "a refused change changes nothing");
        return;
    }
    Expect(node.Find("fuzzvalue") == value, "a property that was set can be read");
    const auto again = MustRead(tree->Bytes(), "a form with a new property can be read");
    Expect(NodesOf(*again).at(index)->Find("FuzzValue") == value, "a new property is in the file");
    tree->RemoveProperty(node, "FuzzValue");
    const auto without = MustRead(tree->Bytes(), "a form can be read after a property has gone");
    Expect(!NodesOf(*without).at(index)->Find("FuzzValue"), "a removed property is not in the file");
}

void CheckSameValues(const std::string& bytes, std::size_t index) {
    const auto tree = Read(bytes);
    TFormNode& node = *NodesOf(*tree).at(index);
    for (const std::string& name : node.PropertyNames()) {
        const auto value = node.Find(name);
        Expect(value.has_value(), "every listed property has a value");
        tree->SetProperty(node, name, *value);
    }
    Expect(tree->Bytes() == bytes, "an equal value changes nothing");
}

void CheckChildren(const std::string& bytes, std::size_t index) {
    const auto tree = Read(bytes);
    TFormNode& node = *NodesOf(*tree).at(index);
    const std::size_t count = node.Children().size();
    TFormNode& child = tree->AddChild(node, "FuzzChild", "TFuzz");
    tree->SetProperty(child, "Caption", TFormValue::String("new"));
    tree->Rename(child, "FuzzOther");
    const auto again = MustRead(tree->Bytes(), "a form with a new component can be read");
    const auto& children = NodesOf(*again).at(index)->Children();
    Expect(children.size() == count + 1, "a new component is in the file");
    Expect(children.back()->Name() == "FuzzOther", "a new name is in the file");
    Expect(children.back()->Find("Caption") == TFormValue::String("new"), "and its property too");
    tree->RemoveChild(child);
    const auto without = MustRead(tree->Bytes(), "a form can be read after a component has gone");
    Expect(NodesOf(*without).at(index)->Children().size() == count, "a removed component has gone");
}

bool HoldsFloat(const TFormValue& value) {
    for (const auto& item : value.Collection)
        for (const TFormProperty& property : item)
            if (HoldsFloat(property.Value)) return true;
    return value.Kind == TFormValueKind::Float ||
           std::any_of(value.Items.begin(), value.Items.end(), HoldsFloat);
}

/// The values of some of the node's own properties, and some that files seldom hold.
std::vector<TFormValue> ValuesFor(const TFormNode& node) {
    std::vector<TFormValue> values = {
        TFormValue::Integer(-129), TFormValue::Boolean(true),
        TFormValue::String("it's\r\n\xC3\xA9 a text that is longer than the sixty-four letters of one piece"),
        TFormValue::Strings(TStringList::FromText("one\r\n\r\nthree\r\n"))};
    for (const std::string& name : node.PropertyNames()) {
        if (values.size() == 8) break;
        // The same number may be written differently: its text depends on how the file stores it.
        const auto value = node.Find(name);
        if (value && !HoldsFloat(*value)) values.push_back(*value);
    }
    return values;
}

}  // namespace

void CheckForm(const std::string& bytes) {
    const auto guessed = Read(bytes, "");
    const auto tree = Read(bytes);
    Expect((guessed == nullptr) == (tree == nullptr),
           "a code page does not decide whether a form can be read");
    if (tree == nullptr) return;
    Expect(guessed->Bytes() == bytes, "nor whether it comes back byte for byte");
    Expect(tree->Bytes() == bytes, "an unchanged form comes back byte for byte");
    CheckConversions(*tree);
    const auto nodes = NodesOf(*tree);
    const std::size_t index = bytes.size() % nodes.size();
    for (const TFormValue& value : ValuesFor(*nodes[index]))
        CheckProperty(bytes, index, value);
    CheckSameValues(bytes, index);
    CheckChildren(bytes, index);
}

}  // namespace tml::fuzz
