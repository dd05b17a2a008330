#pragma once

#include <QString>

class QWidget;

namespace voltmere {

/// Tells assistive technology what a picker is for: by its accessible name and, where a picker's
/// name is taken to be its selection (Qt on Linux), by a hidden label that belongs to it. The
/// picker must already be among its siblings.
void namePicker(QWidget& picker, const QString& name);

/// Has assistive technology take a widget for a window. It would else be a mere container, at which
/// a screen reader stays silent when it opens.
void announceAsWindow(QWidget& widget);

} // namespace voltmere
