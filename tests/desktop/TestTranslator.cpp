// A translator does whole programs by the keyboard alone, each from its first text to its last one.
#include <QPlainTextEdit>
#include <QProcess>
#include <nlohmann/json.hpp>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

/// What is the same in every language is copied, in front of the others stands a letter of the language.
bool IsCopied(const QString& base) {
    return std::none_of(base.begin(), base.end(), [](QChar c) { return c.isLower(); });
}
QString Translated(const QString& base, const QString& language) {
    return IsCopied(base) ? base : language.left(1) + base;
}

class TTranslator : public TDesktop {
  public:
    /// The texts that a program has afterwards, all languages counted, with its files held against what was
    /// to be typed. What translations it has it loses first.
    int Translate(const std::string& folder, const std::string& project) {
        namespace fs = std::filesystem;
        const std::string name = fs::path(folder).filename().string();
        fs::create_directory(Path("work"));
        fs::copy(fs::path(TML_TESTS) / ".." / folder, Path("work/" + name), fs::copy_options::recursive);
        file_ = ToQt(Path("work/" + name + "/" + project));
        Run({"clear", file_, "--yes"});
        TranslateByKeys();
        return HoldTexts();
    }

  private:
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    static void Write(const QString& text) {
        for (const char32_t c : text.toUcs4()) {
            if (c == '\n')
                Key(Qt::Key_Return);
            else
                QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                    QString::fromUcs4(&c, 1), Qt::NoModifier);
        }
    }

    void TranslateByKeys() {
        Activate(*Window);
        Window->setFocus();
        User.ChooseFile(file_);
        Key(Qt::Key_O, Qt::ControlModifier);
        Activate(*Window);
        Key(Qt::Key_L, Qt::ControlModifier);
        Key(Qt::Key_A, Qt::ControlModifier);
        User.On([](QWidget& editor) {
            ASSERT_EQ(editor.objectName(), "frmTransEditor");
            const int columns = editor.findChild<QTableView*>("grTexts")->model()->columnCount();
            for (int column = 2; column < columns; ++column) {
                TranslateLanguage(editor);
                if (editor.findChild<QPlainTextEdit*>("memText")->hasFocus())
                    Key(Qt::Key_Return, Qt::ControlModifier);
                Key(Qt::Key_Right);
            }
            Key(Qt::Key_O, Qt::AltModifier);
        });
        Key(Qt::Key_T, Qt::ControlModifier);
        Activate(*Window);
        Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    }
    static bool IsLeft(QWidget& editor) {
        const QString state = TextOf(editor, "lblText");
        return state.contains("(Missing)") || state.contains("(Stale)") || state.contains("(Touched)");
    }
    static void TranslateLanguage(QWidget& editor) {
        if (!IsLeft(editor)) Key(Qt::Key_F7);
        while (IsLeft(editor) && !HasFailure()) {
            const QString language = TextOf(editor, "lblText").section(" (", 0, 0);
            const QString base = editor.findChild<QPlainTextEdit*>("memBase")->toPlainText();
            if (IsCopied(base))
                Key(Qt::Key_F6);
            else
                Write(Translated(base, language));
            Key(Qt::Key_F8);
        }
    }

    static QString Run(const QStringList& arguments) {
        QProcess program;
        program.start(TML_BIN "/tmllang", arguments);
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().constData();
        return QString::fromUtf8(program.readAllStandardOutput());
    }
    int HoldTexts() const {
        std::map<std::string, QStringList> languages;
        for (const QString& line : Run({"languages", file_}).split('\n', Qt::SkipEmptyParts))
            languages[FromQt(line.section(": ", 0, 0))] =
                ToQt(TStringList::FromCommaText(FromQt(line.section(": ", 1))));
        int held = 0;
        for (const QString& line : Run({"texts", file_, "--json"}).split('\n', Qt::SkipEmptyParts)) {
            const auto entry = nlohmann::json::parse(FromQt(line));
            const std::vector<std::string> values = entry["values"], states = entry["states"];
            const QStringList& names = languages.at(entry["form"]);
            for (std::size_t i = 0; i < states.size(); ++i, ++held) {
                const QString language = names.at(static_cast<int>(i) + 1);
                const QString wanted = Translated(ToQt(values[0]), language);
                EXPECT_EQ(ToQt(values[i + 1]), wanted) << FromQt(line) << FromQt(language);
                EXPECT_EQ(states[i], "done") << FromQt(line);
            }
        }
        return held;
    }

    QString file_;
};

TEST_F(TTranslator, DoesAProgramWhoseFormsHaveComponents) {
    EXPECT_GE(Translate("examples/harbour", "Harbour.lpi"), 100);
}

TEST_F(TTranslator, DoesAProgramThatHasNoTranslationYet) {
    EXPECT_GE(Translate("examples/orchard", "Orchard.dproj"), 25);
}

TEST_F(TTranslator, DoesAProgramInCpp) {
    EXPECT_GE(Translate("examples/cellar", "Cellar.cbproj"), 10);
}

TEST_F(TTranslator, DoesFormsInManyLanguages) {
    EXPECT_GE(Translate("components/tests/forms", "Samples.dpr"), 90);
}

}  // namespace
}  // namespace tml
