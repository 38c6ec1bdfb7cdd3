#include "ide/Unitsource.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "source/Ancestors.h"
#include "source/Sourceedits.h"

namespace tml {
namespace {

/// Works an edit out on the buffer's text and makes it.
template <typename PlanEdits>
void Edit(TSourceBuffer& buffer, const std::string& title, PlanEdits planEdits) {
    const std::shared_ptr<const std::string> text = buffer.Text();
    const TSourceText source(*text, LanguageOf(buffer.FileName()), buffer.FileName());
    buffer.Apply(planEdits(source), title);
}

/// AddField has nothing to do where the field is there already.
bool HasField(const TSourceText& source, const std::string& formClass, const std::string& name,
              const std::string& className) {
    return AddField(source, formClass, name, className).empty();
}

bool IsNameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// End of the comment or literal that begins at the offset, the offset itself when none does there. Both
/// lists are walked along with the offset.
class TNoCode {
  public:
    explicit TNoCode(const TSourceText& source) : source_(source) {}

    std::size_t EndAt(std::size_t offset) {
        return std::max(EndIn(source_.Comments(), comment_, offset),
                        EndIn(source_.Literals(), literal_, offset));
    }

  private:
    template <typename List>
    static std::size_t EndIn(const List& list, std::size_t& next, std::size_t offset) {
        while (next < list.size() && list[next].End <= offset)
            ++next;
        return next < list.size() && list[next].Begin <= offset ? list[next].End : offset;
    }

    const TSourceText& source_;
    std::size_t comment_ = 0;
    std::size_t literal_ = 0;
};

/// Every use of a name in code that is not a member of something else.
TEdits RenameIdentifier(const TSourceText& source, const std::string& oldName, const std::string& newName) {
    const std::string_view text = source.Text();
    const bool isCpp = source.Language().IsCPPSource;
    TNoCode noCode(source);
    TEdits edits;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t codeBegin = noCode.EndAt(pos);
        if (codeBegin > pos) {
            pos = codeBegin;
            continue;
        }
        std::size_t end = pos;
        while (end < text.size() && IsNameByte(text[end]))
            ++end;
        const std::string_view word = text.substr(pos, end - pos);
        const std::string_view before = text.substr(0, pos);
        const bool isMember = before.ends_with('.') || before.ends_with("->");
        if (!isMember && (isCpp ? word == oldName : SameText(word, oldName)))
            edits.push_back({pos, end, newName});
        pos = std::max(end, pos + 1);
    }
    return edits;
}

}  // namespace

TSourceBuffer& TUnitSource::Declaration() {
    if (header_) return *header_;
    if (IsCppUnit(unit_->FileName()))
        throw EBadInput(unit_->FileName(), 0, "the unit has no header that could declare its form",
                        "Restore the header beside the unit");
    return *unit_;
}

void TUnitSource::AddComponent(const std::string& formClass, const std::string& name,
                               const std::string& className, const std::string& unitName) {
    TSourceBuffer& declaration = Declaration();
    const std::string title = "Declare " + name;
    Edit(declaration, title,
         [&](const TSourceText& source) { return AddField(source, formClass, name, className); });
    Edit(declaration, title, [&](const TSourceText& source) {
        return source.Language().IsCPPSource ? AddInclude(source, unitName + ".hpp")
                                             : AddUsedUnit(source, unitName);
    });
}

void TUnitSource::RenameComponent(const std::string& formClass, const std::string& className,
                                  const std::string& oldName, const std::string& newName) {
    Edit(Declaration(), "Rename " + oldName, [&](const TSourceText& source) {
        return HasField(source, formClass, oldName, className)
                   ? RenameField(source, formClass, oldName, newName)
                   : TEdits();
    });
}

void TUnitSource::RemoveComponent(const std::string& formClass, const std::string& className,
                                  const std::string& name) {
    Edit(Declaration(), "Remove " + name, [&](const TSourceText& source) {
        return HasField(source, formClass, name, className) ? RemoveField(source, formClass, name) : TEdits();
    });
}

void TUnitSource::RenameForm(const std::string& oldName, const std::string& newName) {
    const auto plan = [&](const TSourceText& source) { return RenameIdentifier(source, oldName, newName); };
    Edit(*unit_, "Rename " + oldName, plan);
    if (header_) Edit(*header_, "Rename " + oldName, plan);
}

std::string TUnitSource::AncestorOf(const std::string& formClass) {
    const TSourceBuffer& declaration = Declaration();
    const std::shared_ptr<const std::string> text = declaration.Text();
    return tml::AncestorOf(TSourceText(*text, LanguageOf(declaration.FileName()), declaration.FileName()),
                           formClass);
}

}  // namespace tml
