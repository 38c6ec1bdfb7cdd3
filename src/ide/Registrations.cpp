#include "ide/Registrations.h"

namespace tml {
namespace {

template <typename T>
void Append(std::vector<T>& entries, const std::vector<T>& others) {
    entries.insert(entries.end(), others.begin(), others.end());
}

}  // namespace

void TRegistrations::Add(const TRegistrations& other) {
    Append(Components, other.Components);
    Append(ComponentEditors, other.ComponentEditors);
    Append(PropertyEditors, other.PropertyEditors);
    Append(SelectionEditors, other.SelectionEditors);
    Append(Actions, other.Actions);
}

}  // namespace tml
