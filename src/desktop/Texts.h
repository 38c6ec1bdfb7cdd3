#pragma once

#include <QKeySequence>
#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

#include "base/Stringlist.h"
#include "windows/Shortcuts.h"

namespace tml {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

inline QStringList ToQt(const TStringList& list) {
    QStringList result;
    for (const std::string& text : list)
        result += ToQt(text);
    return result;
}

/// A byte offset as a text editor counts it: in UTF-16 units, a line end as one character.
inline int PlaceInEditor(std::string_view text, std::size_t bytes) {
    return static_cast<int>(ToQt(text.substr(0, bytes)).remove('\r').size());
}

// The toolkit names three keys in its own way.

inline QKeySequence KeysOf(TShortCut shortCut) {
    QString text = ToQt(ShortCutToText(shortCut));
    text.replace("BkSp", "Backspace").replace("PgDn", "PgDown").replace("Enter", "Return");
    return QKeySequence(text);
}

/// 0 where the keys are no shortcut of the platform.
inline TShortCut ShortCutOf(const QKeySequence& keys) {
    QString text = keys.toString(QKeySequence::PortableText);
    text.replace("Backspace", "BkSp").replace("PgDown", "PgDn").replace("Return", "Enter");
    return TextToShortCut(FromQt(text));
}

}  // namespace tml
