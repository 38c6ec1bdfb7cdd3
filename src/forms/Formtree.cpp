#include "forms/Formtree.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/Utf8.h"
#include "forms/Formbinary.h"
#include "forms/Formbinarywriter.h"
#include "forms/Formbuilder.h"
#include "forms/Formchanges.h"
#include "forms/Formeditor.h"
#include "forms/Formtextwriter.h"

namespace tml {

namespace {

TFormNode* FindBelow(TFormNode& node, std::string_view name) {
    if (SameText(node.Name(), name)) return &node;
    for (const auto& child : node.Children()) {
        if (TFormNode* const found = FindBelow(*child, name)) return found;
    }
    return nullptr;
}

}  // namespace

TFormTree::TFormTree(std::unique_ptr<TFormFile> file) : file_(std::move(file)), root_(file_->Parse()) {
    ++ParseCount();
}

TFormTree::~TFormTree() = default;

int& TFormTree::ParseCount() {
    thread_local int count = 0;
    return count;
}

std::unique_ptr<TFormTree> TFormTree::Parse(std::string bytes, const std::string& fileName,
                                            std::string_view codePage) {
    return Parse(std::make_shared<const std::string>(std::move(bytes)), fileName, codePage);
}

std::unique_ptr<TFormTree> TFormTree::Parse(std::shared_ptr<const std::string> bytes,
                                            const std::string& fileName, std::string_view codePage) {
    return std::unique_ptr<TFormTree>(new TFormTree(MakeFormFile(std::move(bytes), fileName, codePage)));
}

bool TFormTree::IsBinary() const {
    return file_->IsBinary();
}

TFormNode* TFormTree::FindComponent(std::string_view name) {
    return FindBelow(*root_, name);
}

const IFormEditor& TFormTree::Editor() {
    if (!editor_) editor_ = MakeFormEditor(*file_, *root_);
    return *editor_;
}

void TFormTree::SetProperty(TFormNode& node, const std::string& name, const TFormValue& value,
                            std::size_t place) {
    if (node.Find(name) == value) return;
    TFormNodeData& data = node.Data();
    Editor().ExpectWritable(name, value);
    const std::size_t index = data.FindProperty(name);
    if (index == kNoProperty) {
        const auto at = static_cast<std::ptrdiff_t>(std::min(place, data.Properties.size()));
        TFormPropertyPlace& added = *data.Properties.emplace(data.Properties.begin() + at);
        added.Change = std::make_unique<TFormProperty>(TFormProperty{name, value});
        return;
    }
    TFormPropertyPlace& held = data.Properties[index];
    if (held.Change)
        held.Change->Value = value;
    else
        held.Change = std::make_unique<TFormProperty>(TFormProperty{data.PropertyName(held), value});
}

void TFormTree::RemoveProperty(TFormNode& node, std::string_view name) {
    Editor();
    TFormNodeData& data = node.Data();
    const std::size_t index = data.FindProperty(name);
    if (index == kNoProperty) return;
    const auto place = data.Properties.begin() + static_cast<std::ptrdiff_t>(index);
    if (!place->Name.Empty()) data.Removed.push_back({place->Name.Begin, place->Value.End});
    data.Properties.erase(place);
}

TFormNode& TFormTree::AddChild(TFormNode& parent, const std::string& name, const std::string& className,
                               TFormPrefix prefix) {
    Editor();
    CheckedName(className, *file_);
    if (!name.empty()) CheckedName(name, *file_);
    TFormNode& child = *parent.Data().Children.emplace_back(std::make_unique<TFormNode>());
    TFormNodeData& data = child.Data();
    data.File = file_.get();
    data.Parent = &parent;
    data.Prefix = prefix;
    data.Name = name;
    data.ClassName = className;
    data.IsNew = true;
    return child;
}

void TFormTree::RemoveChild(TFormNode& node) {
    if (node.Parent() == nullptr) throw std::logic_error("the root of a form cannot be removed");
    Editor();
    TFormNodeData& parent = node.Parent()->Data();
    if (!node.Data().IsNew) parent.Removed.push_back(node.Data().Span);
    const auto isNode = [&](const auto& child) { return child.get() == &node; };
    parent.Children.erase(std::find_if(parent.Children.begin(), parent.Children.end(), isNode));
}

void TFormTree::Rename(TFormNode& node, const std::string& name) {
    if (node.Name() == name) return;
    Editor();
    if (!name.empty()) CheckedName(name, *file_);
    node.Data().Name = name;
    node.Data().Renamed = !node.Data().IsNew;
}

void TFormTree::SetClass(TFormNode& node, const std::string& className) {
    if (node.Parent() == nullptr) throw std::logic_error("the class of a form's root cannot be changed");
    if (node.ClassName() == className) return;
    Editor();
    node.Data().ClassName = CheckedName(className, *file_);
    node.Data().Reclassed = !node.Data().IsNew;
}

std::string TFormTree::Bytes() const {
    if (!editor_) return file_->Bytes();
    return ApplyEdits(file_->Bytes(), FormEdits(*root_, *editor_));
}

std::unique_ptr<TFormTree> TFormTree::Reread() const {
    return Parse(Bytes(), file_->FileName(), file_->CodePage());
}

std::string TFormTree::Text() const {
    if (!IsBinary()) return Bytes();
    if (editor_) return Reread()->Text();
    std::string text;
    text.reserve(2 * file_->Bytes().size());
    const TFormTextStyle style;
    TFormTextWriter writer(*file_, style, text);
    WriteNode(*root_, writer);
    text += style.LineEnd;
    return text;
}

std::string TFormTree::Binary() const {
    if (IsBinary()) return Bytes();
    if (editor_) return Reread()->Binary();
    std::string resource = ResourceHeader(file_->Name(root_->Data().ClassSpan));
    const std::size_t begin = resource.size();
    resource.reserve(file_->Bytes().size());
    resource += kFormSignature;
    TFormBinaryWriter writer(*file_, TFormStringKind::Wide, resource);
    WriteNode(*root_, writer);
    const std::string size = SizeBytes(resource.size() - begin);
    resource.replace(begin - size.size(), size.size(), size);
    return resource;
}

}  // namespace tml
