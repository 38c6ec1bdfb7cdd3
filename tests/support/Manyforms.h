#pragma once

#include <functional>
#include <string>

namespace tml {

/// A generated project of forms "F1", "F2" ..., each with a caption, a hint and three strings in its unit, of
/// which one carries an advice. put takes the name of each file and its text (LF).
inline void MakeManyForms(int count,
                          const std::function<void(const std::string& name, const std::string& text)>& put) {
    std::string units;
    for (int i = 1; i <= count; ++i) {
        const std::string n = std::to_string(i);
        units += ",\n  U" + n + " in 'U" + n + ".pas' {F" + n + "}";
        put("U" + n + ".dfm",
            "object F" + n + ": TF" + n + "\n  Caption = 'Form number " + n +
                "'\n  object Edit1: TEdit\n    Hint = 'Type here'\n    Text = 'old'\n  end\nend\n");
        put("U" + n + ".pas",
            "unit U" + n + ";\n\ninterface\n\nuses\n  Forms, StdCtrls;\n\ntype\n  TF" + n +
                " = class(TForm)\n    Edit1: TEdit;\n    procedure Go;\n  end;\n\nconst\n  Kept = "
                "'kept here';\n\nimplementation\n\n{$R *.dfm}\n\nprocedure TF" +
                n + ".Go;\nbegin\n  Caption := 'Going " + n + "';\n  Edit1.Text := 'Gone';\nend;\n\nend.\n");
    }
    put("Many.dpr", "program Many;\n\nuses\n  Forms" + units + ";\n\nbegin\n  Application.Run;\nend.\n");
}

}  // namespace tml
