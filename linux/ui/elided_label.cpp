#include "linux/ui/elided_label.h"

#include "linux/ui/display_text.h"

#include <QEvent>
#include <QFontMetrics>

namespace voltmere {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::setFullText(const QString& text)
{
    fullText = text;
    setAccessibleName(text);
    // Without a description of its own, the tooltip's markup would be read out.
    setAccessibleDescription(text);
    setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    elide();
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        elide();
    }
}

void ElidedLabel::elide()
{
    const QString shown =
        fontMetrics().elidedText(fullText, Qt::ElideMiddle, contentsRect().width());
    setText(shown);
    setToolTip(shown == fullText ? QString() : plainToolTip(fullText));
}

} // namespace voltmere
