#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tallyo {

// The program's bytes as a text for a widget.
[[nodiscard]] QString Shown(std::string_view bytes);

// What a person typed, as the program keeps it.
[[nodiscard]] std::string Typed(const QString& text);

// The text for a menu or button that shows every "&" of it as it stands.
[[nodiscard]] QString WithoutAccessKeys(QString text);

// A caption as it is read aloud: without the "&" before its access key.
[[nodiscard]] QString SpokenCaption(std::string_view caption);

// The text for a tool tip that shows it as it stands, whatever markup it holds, in lines of a
// readable length; the end of a very long text is left out.
[[nodiscard]] QString ToolTipOf(const QString& text);

// The same text with places where its endless words may be broken into lines.
[[nodiscard]] QString Breakable(const QString& text);

}  // namespace tallyo
