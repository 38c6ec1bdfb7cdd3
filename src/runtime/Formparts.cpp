#include "runtime/Formparts.h"

#include <algorithm>

#include "base/Utf8.h"
#include "runtime/Classes.h"

namespace tml {
namespace {

/// Ancestors and frames within each other; a frame that stands on itself has no end.
constexpr int kDeepest = 50;

std::string Joined(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + '.' + name;
}

/// The ancestor's properties with those that the form changes.
void Override(std::vector<TFormProperty>& properties, std::vector<TFormProperty> changes) {
    if (properties.empty()) {
        properties = std::move(changes);
        return;
    }
    for (TFormProperty& change : changes) {
        const auto same = std::find_if(properties.begin(), properties.end(), [&](const TFormProperty& one) {
            return SameText(one.Name, change.Name);
        });
        if (same == properties.end())
            properties.push_back(std::move(change));
        else
            same->Value = std::move(change.Value);
    }
}

}  // namespace

/// The blocks of one file that the component which is being read stands in, and where in the result theirs
/// are; the outermost first.
struct TFormParts::TPlaces {
    struct TBlock {
        TComponentHandle Component;
        int Part;
    };
    std::vector<TBlock> Blocks;

    /// Components come in the order of the file: what a block's last component has left is over. -1 for a
    /// component of another file.
    int HolderOf(IOTAComponent* parent) {
        const TComponentHandle handle = parent == nullptr ? nullptr : parent->GetComponentHandle();
        const auto block = std::find_if(Blocks.rbegin(), Blocks.rend(),
                                        [&](const TBlock& one) { return one.Component == handle; });
        if (block == Blocks.rend()) return -1;
        Blocks.erase(block.base(), Blocks.end());
        return Blocks.back().Part;
    }
};

TFormParts::TFormParts(const TComponentPtr& owner, TFrames frames, TProps props)
    : frames_(frames), props_(props) {
    Read(owner, {}, -1);
}

/// A form, frame or ancestor: what it repeats first, then what its file says.
void TFormParts::Read(const TComponentPtr& owner, const std::string& path, int holder) {
    const bool isFrame = owner->GetOrigin() == TComponentOrigin::coFrame;
    const std::size_t begin = parts_.size();
    const auto ancestor = ++depth_ > kDeepest ? nullptr : owner->GetAncestor();
    if (ancestor != nullptr) {
        ++above_;
        Read(ancestor, path, holder);
        --above_;
    } else if (owner->GetOrigin() != TComponentOrigin::coOwn) {
        unseen_.push_back(path);
    }
    if (isFrame && frames_ == TFrames::Translated) LeaveTranslated(begin);
    ReadBlock(owner, path, holder);
    if (isFrame && !path.empty())
        parts_[static_cast<std::size_t>(byPath_.at(UpperCase(path)))].FrameForm = ancestor;
    --depth_;
}

/// What the file says of a form or a frame, be it inherited.
void TFormParts::ReadBlock(const TComponentPtr& owner, const std::string& path, int holder) {
    TPlaces places{{{owner->GetComponentHandle(), Overlay(owner, path, holder)}}};
    const int count = owner->GetComponentCount();
    if (parts_.size() == 1) {
        const std::size_t size = static_cast<std::size_t>(count) + 1;
        parts_.reserve(size);
        byPath_.reserve(size);
    }
    for (int i = 0; i < count; ++i)
        ReadOwned(owner->GetComponent(i), path, places);
}

void TFormParts::ReadOwned(const TComponentPtr& component, const std::string& path, TPlaces& places) {
    const int holder = places.HolderOf(component->GetParent().get());
    const std::string name = component->GetName();
    const std::string own = name.empty() ? name : Joined(path, name);
    if (own.empty()) {
        places.Blocks.push_back({component->GetComponentHandle(), holder});
    } else if (component->GetOrigin() == TComponentOrigin::coFrame) {
        Read(component, own, holder);
    } else if (component->GetComponentCount() > 0) {
        ReadBlock(component, own, holder);
    } else {
        places.Blocks.push_back({component->GetComponentHandle(), Overlay(component, own, holder)});
    }
}

/// Gives the component's index.
int TFormParts::Overlay(const TComponentPtr& component, const std::string& path, int holder) {
    const auto [place, isNew] = byPath_.emplace(UpperCase(path), static_cast<int>(parts_.size()));
    if (isNew) parts_.emplace_back();
    TFormPart& part = parts_[static_cast<std::size_t>(place->second)];
    if (isNew) {
        part.Path = path;
        part.Holder = holder;
    }
    part.Name = component->GetName();
    part.ClassName = component->GetComponentType();
    part.IsFrame = part.IsFrame || component->GetOrigin() == TComponentOrigin::coFrame;
    if (above_ == 0) part.Component = component;
    // What a localization component holds are tables, which nobody looks for here.
    if (!ClassInheritsFrom(part.ClassName, "TmlCustomLang"))
        Override(part.Properties,
                 props_ == TProps::All ? component->GetProperties() : component->GetTextProperties());
    return place->second;
}

/// A frame that has a localization component translates itself: the form that it stands on sees no more of it
/// than what it changes.
void TFormParts::LeaveTranslated(std::size_t begin) {
    const auto first = parts_.begin() + static_cast<std::ptrdiff_t>(begin);
    if (std::none_of(first, parts_.end(), [](const TFormPart& part) {
            return ClassInheritsFrom(part.ClassName, "TmlCustomLang");
        }))
        return;
    for (auto part = first; part != parts_.end(); ++part) {
        part->Properties.clear();
        part->TranslatesItself = true;
    }
}

const TFormPart* TFormParts::Find(std::string_view path) const {
    const auto found = byPath_.find(UpperCase(path));
    return found == byPath_.end() ? nullptr : &parts_[static_cast<std::size_t>(found->second)];
}

const TFormPart* TFormParts::OfKey(std::string_view key) const {
    const std::string upper = UpperCase(key);
    const TFormPart* deepest = upper.starts_with('.') ? Find("") : nullptr;
    for (std::size_t dot = upper.find('.', 1); dot != std::string::npos; dot = upper.find('.', dot + 1)) {
        const auto found = byPath_.find(upper.substr(0, dot));
        if (found == byPath_.end()) break;
        deepest = &parts_[static_cast<std::size_t>(found->second)];
    }
    return deepest;
}

}  // namespace tml
