#include "Formchecks.h"

#include <memory>
#include <vector>

#include "Expect.h"
#include "base/Errors.h"
#include "forms/Formtree.h"

namespace tml::fuzz {
namespace {

constexpr const char* kFile = "Fuzz.dfm";

std::unique_ptr<TFormTree> Read(const std::string& bytes) {
    try {
        return TFormTree::Parse(bytes, kFile);
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

/// Text where the form is binary, binary where it is text.
std::string Converted(const TFormTree& tree) {
    return tree.IsBinary() ? tree.Text() : tree.Binary();
}

void CheckConversions(const TFormTree& tree) {
    std::string there;
    try {
        there = Converted(tree);
    } catch (const EBadInput&) {
        return;  // some value has no place in the other kind
    }
    const auto other = MustRead(there, "a converted form can be read");
    Expect(other->IsBinary() != tree.IsBinary(), "a conversion gives the other kind");
    const std::string back = Converted(*other);
    const auto again = MustRead(back, "a form converted twice can be read");
    Expect(Converted(*again) == there, "what a conversion gave is stable");
}

std::vector<TFormNode*> NodesOf(TFormTree& tree) {
    std::vector<TFormNode*> nodes = {&tree.Root()};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        for (const auto& child : nodes[i]->Children())
            nodes.push_back(child.get());
    return nodes;
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

/// The values of some of the node's own properties, and some that files seldom hold.
std::vector<TFormValue> ValuesFor(const TFormNode& node) {
    std::vector<TFormValue> values = {
        TFormValue::Integer(-129), TFormValue::Boolean(true),
        TFormValue::String("it's\r\n\xC3\xA9 a text that is longer than the sixty-four letters of one piece"),
        TFormValue::Strings(TStringList::FromText("one\r\n\r\nthree\r\n"))};
    for (const std::string& name : node.PropertyNames()) {
        if (values.size() == 8) break;
        if (const auto value = node.Find(name)) values.push_back(*value);
    }
    return values;
}

}  // namespace

void CheckForm(const std::string& bytes) {
    const auto tree = Read(bytes);
    if (tree == nullptr) return;
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
