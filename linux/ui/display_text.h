#pragma once

#include <QString>

#include <string_view>

namespace voltmere {

/// `plainText`, as Qt takes it.
QString displayText(std::string_view text);

/// A tooltip that shows `text` as it stands. A tooltip is otherwise read as markup when it looks
/// like it.
QString plainToolTip(const QString& text);

} // namespace voltmere
