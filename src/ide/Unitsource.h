#pragma once

#include <memory>
#include <string>

#include "ide/Sourcebuffer.h"

namespace tml {

/// The source of a form, as far as the designer changes it: the unit or, in C++, its header.
class TUnitSource {
  public:
    /// header is nullptr in Pascal.
    TUnitSource(std::shared_ptr<TSourceBuffer> unit, std::shared_ptr<TSourceBuffer> header)
        : unit_(std::move(unit)), header_(std::move(header)) {}

    /// Whether the name is one that the unit's language can give a field.
    bool CanDeclare(const std::string& name) const;
    /// Whether the form's class can have a field of the name and type: no other member of it has the name.
    /// EBadInput when the class cannot be found.
    bool HasRoomFor(const std::string& formClass, const std::string& name, const std::string& className);
    /// The component's field in the form's class, and the unit that declares the component's class.
    /// EBadInput when the source has no place for them.
    void AddComponent(const std::string& formClass, const std::string& name, const std::string& className,
                      const std::string& unitName);
    /// A component without a field stays without one.
    void RenameComponent(const std::string& formClass, const std::string& className,
                         const std::string& oldName, const std::string& newName);
    void RemoveComponent(const std::string& formClass, const std::string& className, const std::string& name);
    /// The form's variable, wherever the unit itself names it.
    void RenameForm(const std::string& oldName, const std::string& newName);

    /// The class that the form's class derives from, "" without one.
    std::string AncestorOf(const std::string& formClass);

  private:
    /// Where the form's class is declared. EBadInput for a C++ unit without a header.
    TSourceBuffer& Declaration();

    std::shared_ptr<TSourceBuffer> unit_;
    std::shared_ptr<TSourceBuffer> header_;
};

}  // namespace tml
