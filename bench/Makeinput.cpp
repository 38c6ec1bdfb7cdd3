// bench-make form BYTES FILE: a text form of at least that many bytes.
// bench-make project COUNT FOLDER: a project of COUNT forms with their units, in a new folder.
// bench-make ids COUNT FOLDER: likewise with 100 string IDs a form, which the unit asks for but for some.
// bench-make sources COUNT FOLDER: likewise with units of 1,000 lines and no components on the forms yet.
// What is made depends on the numbers only.
#include <array>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace tml::bench {
namespace {

/// A small generator of numbers, the same on every machine.
class TDice {
  public:
    /// 0 to sides - 1
    unsigned Roll(unsigned sides) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<unsigned>(state_ >> 33U) % sides;
    }

  private:
    std::uint64_t state_ = 20;
};

/// Writes a form in the style of a designer: two blanks a level, CR LF. The mix of values is that of
/// common forms: integers first, then names, texts, switches, sets, lists, floats and some binary data.
class TFormWriter {
  public:
    const std::string& Text() const { return text_; }

    void Begin(const std::string& name, const std::string& className) {
        Line("object " + name + ": " + className);
        indent_ += "  ";
    }
    void End() {
        indent_.resize(indent_.size() - 2);
        Line("end");
    }
    void Property(const std::string& name, const std::string& value) { Line(name + " = " + value); }

    void Control(const std::string& name, const std::string& className) {
        Begin(name, className);
        for (const char* property : {"Left", "Top", "Width", "Height"})
            Property(property, std::to_string(dice_.Roll(900)));
        Property("Caption", QuotedText());
        Property("Font.Color", "clWindowText");
        Property("Font.Height", "-" + std::to_string(9 + dice_.Roll(8)));
        Property("Font.Style", dice_.Roll(3) == 0 ? "[fsBold, fsItalic]" : "[]");
        Property("ParentFont", dice_.Roll(2) == 0 ? "True" : "False");
        Property("TabOrder", std::to_string(dice_.Roll(40)));
        if (dice_.Roll(2) == 0) Property("OnClick", name + "Click");
        if (dice_.Roll(12) == 0) Property("PrintScale", "0.750000000000000000");
        if (dice_.Roll(10) == 0) List();
        if (dice_.Roll(12) == 0) Items();
        if (dice_.Roll(25) == 0) Binary();
        End();
    }

  private:
    static constexpr std::array kWords = {"Order", "book",   "of",    "the", "fruit", "farm",
                                          "Price", "amount", "apple", "and", "pear",  "Customer"};

    void Line(const std::string& text) { text_ += indent_ + text + "\r\n"; }

    std::string QuotedText() {
        std::string text = "'";
        for (unsigned words = 1 + dice_.Roll(5); words > 0; --words)
            text += std::string(kWords[dice_.Roll(kWords.size())]) + (words > 1 ? " " : "'");
        switch (dice_.Roll(12)) {
            case 0:
                return text + "#13#10'" + kWords[dice_.Roll(kWords.size())] + "'";
            case 1:
                return text + "#1042#1077#1089";
            default:
                return text;
        }
    }

    void List() {
        Line("Items.Strings = (");
        for (unsigned count = 2 + dice_.Roll(6); count > 0; --count)
            Line("  " + QuotedText() + (count == 1 ? ")" : ""));
    }

    void Items() {
        Line("Columns = <");
        for (unsigned count = 1 + dice_.Roll(4); count > 0; --count) {
            Line("  item");
            Line("    Caption = " + QuotedText());
            Line("    Width = " + std::to_string(dice_.Roll(300)));
            Line(count == 1 ? "  end>" : "  end");
        }
    }

    void Binary() {
        Line("Bitmap = {");
        for (unsigned count = 2 + dice_.Roll(10); count > 0; --count) {
            std::string digits;
            for (int i = 0; i < 64; ++i)
                digits += "0123456789ABCDEF"[dice_.Roll(16)];
            Line("  " + digits + (count == 1 ? "}" : ""));
        }
    }

    std::string text_;
    std::string indent_;
    TDice dice_;
};

void Save(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error(path.string() + ": cannot be written");
}

std::string LargeForm(std::size_t size) {
    TFormWriter form;
    form.Begin("MainForm", "TMainForm");
    form.Property("Caption", "'Large form'");
    for (int panel = 1; form.Text().size() < size; ++panel) {
        const std::string number = std::to_string(panel);
        form.Begin("Panel" + number, "TPanel");
        form.Property("Align", "alClient");
        for (int control = 1; control <= 12; ++control)
            form.Control("Button" + number + "_" + std::to_string(control), "TButton");
        form.End();
    }
    form.End();
    return form.Text();
}

std::string SmallForm(const std::string& name) {
    TFormWriter form;
    form.Begin(name, "T" + name);
    form.Property("Caption", "'" + name + "'");
    for (int control = 1; control <= 20; ++control)
        form.Control("Button" + std::to_string(control), "TButton");
    form.Begin("mlLang1", "TmlLang");
    form.Property("NumLang", "2");
    form.Property("LangNames.Strings", "(\r\n      'English'\r\n      'German')");
    form.End();
    form.End();
    return form.Text();
}

std::string UnitOf(const std::string& unit, const std::string& form) {
    return "unit " + unit +
           ";\r\n\r\ninterface\r\n\r\nuses\r\n  Classes, Forms, StdCtrls;\r\n\r\ntype\r\n  T" + form +
           " = class(TForm)\r\n    procedure FormCreate(Sender: TObject);\r\n  end;\r\n\r\nvar\r\n  " + form +
           ": T" + form + ";\r\n\r\nimplementation\r\n\r\n{$R *.dfm}\r\n\r\nprocedure T" + form +
           ".FormCreate(Sender: TObject);\r\nbegin\r\n  Caption := 'The form " + form +
           "';\r\nend;\r\n\r\nend.\r\n";
}

constexpr int kButtons = 20;

std::string FormWithHandlers(const std::string& name) {
    TFormWriter form;
    form.Begin(name, "T" + name);
    form.Property("Caption", "'" + name + "'");
    for (int button = 1; button <= kButtons; ++button) {
        const std::string number = std::to_string(button);
        form.Begin("Button" + number, "TButton");
        form.Property("Left", std::to_string(button * 10));
        form.Property("Caption", "'Button " + number + "'");
        form.Property("OnClick", "Button" + number + "Click");
        form.End();
    }
    form.End();
    return form.Text();
}

/// A handler of 25 lines with one text, comments among its code.
std::string Handler(const std::string& unit, const std::string& form, const std::string& number) {
    std::string code = "procedure T" + form + ".Button" + number + "Click(Sender: TObject);\r\nvar\r\n" +
                       "  I, Count: Integer;\r\nbegin\r\n  Count := 0; { how many }\r\n";
    for (int step = 0; step < 8; ++step)
        code += "  for I := 0 to " + std::to_string(step + 3) + " do\r\n    Count := Count + I * " + number +
                " - (Count div 2); // step " + std::to_string(step) + "\r\n";
    return code + "  if Count > " + number + " then\r\n    ShowMessage('The count of " + unit + " step " +
           number + " is too large');\r\nend;\r\n\r\n";
}

std::string LongUnit(const std::string& unit, const std::string& form) {
    constexpr int kHandlers = 37;
    std::string fields;
    std::string heads;
    std::string handlers;
    for (int i = 1; i <= kButtons; ++i)
        fields += "    Button" + std::to_string(i) + ": TButton;\r\n";
    for (int i = 1; i <= kHandlers; ++i) {
        const std::string number = std::to_string(i);
        heads += "    procedure Button" + number + "Click(Sender: TObject);\r\n";
        handlers += Handler(unit, form, number);
    }
    return "unit " + unit +
           ";\r\n\r\ninterface\r\n\r\nuses\r\n  Classes, Forms, StdCtrls;\r\n\r\ntype\r\n  T" + form +
           " = class(TForm)\r\n" + fields + heads + "  end;\r\n\r\nvar\r\n  " + form + ": T" + form +
           ";\r\n\r\nimplementation\r\n\r\n{$R *.dfm}\r\n\r\n" + handlers + "end.\r\n";
}

constexpr int kStrings = 100;

std::string FormWithStrings(const std::string& name) {
    TFormWriter form;
    form.Begin(name, "T" + name);
    form.Property("Caption", "'" + name + "'");
    form.Begin("mlLang1", "TmlLang");
    std::string strings = "(";
    for (int i = 0; i < kStrings; ++i) {
        const std::string number = std::to_string(i);
        strings += "\r\n      'IDS_" + number + "'#1'Text " + number + "'#1'Text " + number + "'";
    }
    form.Property("Strings.Strings", strings + ")");
    form.End();
    form.End();
    return form.Text();
}

/// One ID in ten is not asked for, and one call in ten has no ID.
std::string UnitWithCalls(const std::string& unit, const std::string& form) {
    std::string code;
    for (int i = 0; i < kStrings; ++i) {
        const std::string number = std::to_string(i % 10 == 0 ? i + 1000 : i);
        code += "  if Count > " + number + " then\r\n    Count := Count - 1; // so that it ends\r\n" +
                "  ShowMessage(mlLang1.GetTextOrDefault('IDS_" + number + "' (* 'Text " + number +
                "' *) ));\r\n";
    }
    return "unit " + unit + ";\r\n\r\ninterface\r\n\r\nuses\r\n  Classes, Forms, Mllang;\r\n\r\ntype\r\n  T" +
           form +
           " = class(TForm)\r\n    mlLang1: TmlLang;\r\n    procedure Work(Count: Integer);\r\n  end;" +
           "\r\n\r\nvar\r\n  " + form + ": T" + form + ";\r\n\r\nimplementation\r\n\r\n{$R *.dfm}" +
           "\r\n\r\nprocedure T" + form + ".Work(Count: Integer);\r\nbegin\r\n" + code +
           "end;\r\n\r\nend.\r\n";
}

/// What writes a form file or unit by its names.
struct TKindOfProject {
    std::string (*Form)(const std::string& form);
    std::string (*Unit)(const std::string& unit, const std::string& form);
};

void MakeProject(const TKindOfProject& kind, std::size_t count, const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder / "units");
    std::string clause = "program Many;\r\n\r\nuses\r\n  Forms";
    for (std::size_t i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        const std::string form = "Form" + number;
        const std::string unit = "Unit" + number;
        clause += ",\r\n  " + unit + " in 'units\\" + unit + ".pas' {" + form + "}";
        Save(folder / "units" / (unit + ".pas"), kind.Unit(unit, form));
        Save(folder / "units" / (unit + ".dfm"), kind.Form(form));
    }
    Save(folder / "Many.dpr", clause + ";\r\n\r\nbegin\r\n  Application.Run;\r\nend.\r\n");
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    const std::string what = argc == 4 ? argv[1] : "";
    if (what != "form" && what != "project" && what != "ids" && what != "sources") {
        std::cerr << "bench-make form BYTES FILE | project COUNT FOLDER | ids COUNT FOLDER | sources COUNT "
                     "FOLDER\n";
        return 2;
    }
    try {
        using namespace tml::bench;
        const std::size_t number = std::stoul(argv[2]);
        if (what == "form")
            Save(argv[3], LargeForm(number));
        else if (what == "project")
            MakeProject({SmallForm, UnitOf}, number, argv[3]);
        else if (what == "ids")
            MakeProject({FormWithStrings, UnitWithCalls}, number, argv[3]);
        else
            MakeProject({FormWithHandlers, LongUnit}, number, argv[3]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-make: " << error.what() << "\n";
        return 2;
    }
}
