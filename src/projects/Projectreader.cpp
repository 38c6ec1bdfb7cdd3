#include "projects/Projectreader.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "projects/Listablefiles.h"
#include "projects/Projectfiles.h"

namespace tml {
namespace {

constexpr const char* kMissingRemedy = "Restore the file or remove it from the project";

class TProjectReader {
  public:
    explicit TProjectReader(IFileSystem& files) : files_(files), listable_(files), index_(listable_) {}

    TProjectSet ReadSet(const std::string& path) {
        const std::string fileName = AbsolutePath(files_, path);
        TParsedProject parsed = Parse(fileName);
        if (!parsed.IsGroup) {
            set_.Projects.push_back(ReadProject(fileName, parsed));
            return std::move(set_);
        }
        set_.GroupFile = fileName;
        seen_.insert(UpperCase(fileName));
        AddMembers(fileName, parsed);
        while (!members_.empty()) {
            const TMember member = std::move(members_.back());
            members_.pop_back();
            ReadMember(member);
        }
        if (set_.Projects.empty()) throw NothingToOpen();
        return std::move(set_);
    }

  private:
    struct TMember {
        std::string GroupFile;
        std::string Name;  ///< as written there
    };

    TParsedProject Parse(const std::string& fileName) {
        const TProjectParser parse = FindProjectParser(fileName);
        if (parse == nullptr) throw NoProject(fileName);
        return WithOwnPaths(parse(files_.Read(fileName), fileName, CodePageFor(fileName)));
    }

    static EBadInput NoProject(const std::string& fileName) {
        std::string known;
        for (const std::string& extension : ProjectExtensions())
            known += (known.empty() ? "*" : ", *") + extension;
        return {fileName, 0, "the file is no known project", "Choose one of " + known};
    }

    /// Projects carry the separators of the system that wrote them; nobody behind this meets those.
    static TParsedProject WithOwnPaths(TParsedProject parsed) {
        parsed.MainSource = WithOwnSeparators(parsed.MainSource);
        for (std::string& project : parsed.Projects)
            project = WithOwnSeparators(project);
        for (TNamedUnit& unit : parsed.Units)
            unit.Path = WithOwnSeparators(unit.Path);
        return parsed;
    }

    /// A code page stands in the options file beside the project.
    std::string CodePageFor(const std::string& fileName) {
        const auto options = index_.Find(FolderOf(fileName), WithExtension(FileNameOf(fileName), ".dof"));
        return options ? ParseOptionsCodePage(files_.Read(*options)) : std::string();
    }

    /// The first one on top.
    void AddMembers(const std::string& groupFile, const TParsedProject& group) {
        std::transform(group.Projects.rbegin(), group.Projects.rend(), std::back_inserter(members_),
                       [&](const std::string& name) {
                           return TMember{groupFile, name};
                       });
    }

    /// A group among them gives its members their place in the order.
    void ReadMember(const TMember& member) {
        if (IsFormlessPackage(member.Name)) return;
        const auto found = index_.Find(FolderOf(member.GroupFile), member.Name);
        if (!found) {
            AddNotFound({member.GroupFile, 0, "the project " + member.Name, {}},
                        JoinPath(FolderOf(member.GroupFile), member.Name));
            return;
        }
        if (!seen_.insert(UpperCase(*found)).second) {
            AddProblem({member.GroupFile, 0, "the project " + member.Name + " is named a second time",
                        "Remove it from one of the groups"});
            return;
        }
        try {
            TParsedProject parsed = Parse(*found);
            if (parsed.IsGroup)
                AddMembers(*found, parsed);
            else
                set_.Projects.push_back(ReadProject(*found, parsed));
        } catch (const EBadInput& error) {
            AddProblem({error.File(), error.Line(), error.Problem(), {}});
        }
    }

    /// A group that leaves nothing to work on, with all that is wrong with its members.
    EBadInput NothingToOpen() const {
        std::string reasons;
        for (const TProjectProblem& problem : set_.Problems) {
            const std::string place = problem.FileName == set_.GroupFile ? std::string() : problem.FileName;
            reasons += (reasons.empty() ? ": " : "; ") +
                       std::string(EBadInput(place, problem.Line, problem.Problem).what());
        }
        return {set_.GroupFile, 0, "the group has no project that can be opened" + reasons,
                "Add a project to it or restore what it names"};
    }

    TProjectModel ReadProject(const std::string& fileName, const TParsedProject& parsed) {
        TProjectModel model;
        model.FileName = fileName;
        model.CodePage = parsed.CodePage.empty() ? CodePageFor(fileName) : parsed.CodePage;
        model.IsCpp = parsed.IsCpp;
        placeOf_.clear();
        AddUnits(model, parsed, fileName);
        AddMainSource(model, parsed.MainSource);
        NoteMissing(model);
        return model;
    }

    /// The project file's own list rules; the program's uses clause adds what is missing in it, units as
    /// well as form names.
    void AddMainSource(TProjectModel& model, const std::string& name) {
        if (name.empty()) return;
        const auto found = index_.Find(FolderOf(model.FileName), name);
        if (!found) {
            AddNotFound({model.FileName, 0, "the main source " + name, {}},
                        JoinPath(FolderOf(model.FileName), name));
            return;
        }
        model.MainSource = *found;
        const TProjectParser parse = FindMainSourceParser(*found);
        if (*found == model.FileName || parse == nullptr) return;
        try {
            AddUnits(model, WithOwnPaths(parse(files_.Read(*found), *found, model.CodePage)), *found);
        } catch (const EBadInput& error) {
            AddProblem({error.File(), error.Line(), error.Problem(), {}});
        }
    }

    void AddUnits(TProjectModel& model, const TParsedProject& parsed, const std::string& namedBy) {
        const std::string folder = FolderOf(namedBy);
        for (const TNamedUnit& named : parsed.Units) {
            TProjectUnit unit{named.Name, {},    named.FormName, named.DesignClass, {},
                              {},         false, namedBy,        named.Line};
            const auto found = FindUnit(folder, named.Path);
            unit.Missing = !found;
            unit.FileName = found ? *found : JoinPath(folder, named.Path);
            const auto [place, isNew] = placeOf_.try_emplace(UpperCase(unit.FileName), model.Units.size());
            if (isNew) {
                LookBeside(unit);
                model.Units.push_back(std::move(unit));
            } else {
                Complete(model.Units[place->second], unit);
            }
        }
    }

    /// The program spells a unit's name as the compiler knows it; a project file only has a file's name.
    static void Complete(TProjectUnit& known, const TProjectUnit& again) {
        if (SameText(known.Name, again.Name)) known.Name = again.Name;
        if (!known.FormName.empty()) return;
        known.FormName = again.FormName;
        known.DesignClass = again.DesignClass;
    }

    /// An object file stands for the source that it is compiled from.
    std::optional<std::string> FindUnit(const std::string& folder, const std::string& path) {
        if (!SameText(ExtensionOf(path), ".obj")) return index_.Find(folder, path);
        for (const char* extension : {".cpp", ".c", ".pas"})
            if (auto found = index_.Find(folder, WithExtension(path, extension))) return found;
        return std::nullopt;
    }

    void LookBeside(TProjectUnit& unit) {
        if (unit.Missing || unit.Name.find('.') != std::string::npos) return;
        unit.FormFile = index_.FormFileOf(unit.FileName);
        unit.HeaderFile = index_.HeaderFileOf(unit.FileName);
    }

    /// What is no unit (a package, a resource script) may come from elsewhere.
    void NoteMissing(const TProjectModel& model) {
        for (const TProjectUnit& unit : model.Units) {
            if (unit.Name.find('.') != std::string::npos) continue;
            const bool formMissing = !unit.FormName.empty() && unit.FormFile.empty();
            if (!unit.Missing && !formMissing) continue;
            AddNotFound({unit.NamedBy,
                         unit.Line,
                         (unit.Missing ? "the unit " : "the form file of ") + unit.FileName,
                         {}},
                        unit.FileName);
        }
    }

    /// The problem names the subject as yet; what is wrong with it is said here: it does not exist, or a
    /// folder on its path cannot be listed.
    void AddNotFound(TProjectProblem problem, const std::string& path) {
        const std::string place = UpperCase(AbsolutePath(files_, path));
        for (const auto& [folder, reason] : listable_.Refused())
            if (place.starts_with(UpperCase(JoinPath(folder, "")))) {
                problem.Problem += " cannot be reached: " + reason;
                AddProblem(std::move(problem));
                return;
            }
        problem.Problem += " does not exist";
        problem.Remedy = kMissingRemedy;
        AddProblem(std::move(problem));
    }

    void AddProblem(TProjectProblem problem) { set_.Problems.push_back(std::move(problem)); }

    IFileSystem& files_;
    TListableFiles listable_;
    TFolderIndex index_;
    TProjectSet set_;
    /// What a group names and is not yet read, the next one last.
    std::vector<TMember> members_;
    /// Upper-cased files of a group and of its members, so that no circle is followed.
    std::unordered_set<std::string> seen_;
    /// Place of each unit file (upper-cased) in the model that is being read.
    std::unordered_map<std::string, std::size_t> placeOf_;
};

}  // namespace

TProjectSet ReadProjectSet(IFileSystem& files, const std::string& path) {
    return TProjectReader(files).ReadSet(path);
}

}  // namespace tml
