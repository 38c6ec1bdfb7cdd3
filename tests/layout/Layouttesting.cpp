#include "layout/Layouttesting.h"

#include "base/Format.h"
#include "forms/Formtree.h"

namespace tml {

TLaidOut::TLaidOut(const std::string& formText, const TLayoutOptions& options)
    : Form(LayoutNodeOf(TFormTree::Parse(formText, "Form.lfm")->Root())),
      Layout(LayOutForm(Form, TFixedMeasure(), options)) {}

std::string TLaidOut::Places() const {
    std::string places;
    for (const TLayoutItem& item : Layout.Items) {
        if (item.Parent < 0) continue;
        const std::string number = item.Item < 0 ? "" : Format("[%d]", item.Item);
        places += Format("%s%s %d,%d %dx%d\n", item.Node->Name, number, item.Bounds.Left, item.Bounds.Top,
                         item.Bounds.Width, item.Bounds.Height);
    }
    return places;
}

}  // namespace tml
