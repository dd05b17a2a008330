#include "linux/ui/layer_shell.h"

// The body for a build without LayerShellQt.

namespace voltmere {

bool standInLayer(QWidget& /*window*/, Qt::Edges /*edges*/)
{
    return false;
}

void closeOnClickElsewhere(QWidget& /*window*/)
{
}

} // namespace voltmere
