#pragma once

#include <cstdint>
#include <string_view>

#include "layout/Formlayout.h"

namespace tml {

enum class TLayoutAlign : std::uint8_t { None, Top, Bottom, Left, Right, Client, Custom };

/// What a size comes from where a control sizes itself.
enum class TLayoutFit : std::uint8_t {
    Nothing,   ///< its children, if it has any
    Text,      ///< the text alone
    TextLine,  ///< the height of a line, with the class's room around it; the width stays
    Labelled,  ///< the text, with the class's room around it
    Title,     ///< a title and the frame around the children
    Fixed,     ///< the class's room
    Combo,     ///< the height of a line and a button; the width stays
    List,      ///< the same of a list that is drawn by the program
    Buttons,   ///< a row of buttons and a line above it; the width stays
};

/// A class of controls as both libraries know it.
struct TLayoutClass {
    std::string_view Name;
    TLayoutKind Kind = TLayoutKind::Box;
    TLayoutSize Size = {75, 50};
    TLayoutAlign Align = TLayoutAlign::None;
    bool AutoSize = false;
    TLayoutFit Fit = TLayoutFit::Nothing;
    TLayoutSize Around = {0, 0};  ///< room around the text
    int Space = 0;                ///< kept around the control
};

/// The class's row, or that of the next ancestor that has one; nullptr when there is none.
const TLayoutClass* FindLayoutClass(std::string_view className);
/// That of the forms, of the frames, and of controls of a class that nothing is known of.
const TLayoutClass& LayoutClassOf(TLayoutKind kind);

}  // namespace tml
