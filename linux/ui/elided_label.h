#pragma once

#include <QLabel>

namespace voltmere {

/// One line of plain text that takes whatever width there is. A text that is too long is cut in the
/// middle; its whole stays the accessible name, and is shown as the tooltip.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent);

    void setFullText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void elide();

    QString fullText;
};

} // namespace voltmere
