#pragma once

#include <QString>

#include <string_view>

namespace voltmere {

/// `text` (UTF-8) for one line on screen: line ends and other control characters become blanks, and
/// marks that would change the reading order of the text around it are left out. People name their
/// devices freely, and a name must not break the line that it stands in.
QString displayText(std::string_view text);

/// A tooltip that shows `text` as it stands. A tooltip is otherwise read as markup when it looks
/// like it.
QString plainToolTip(const QString& text);

} // namespace voltmere
