#include "linux/ui/views.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace voltmere {

WrappingLabel::WrappingLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true); // makes the height depend on the width
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    setSizePolicy(policy);
}

int WrappingLabel::heightForWidth(int width) const
{
    QTextLayout lines(text(), font());
    return layOut(lines, width);
}

QSize WrappingLabel::sizeHint() const
{
    return {0, fontMetrics().height()};
}

QSize WrappingLabel::minimumSizeHint() const
{
    return sizeHint();
}

void WrappingLabel::paintEvent(QPaintEvent* /*event*/)
{
    QTextLayout lines(text(), font());
    layOut(lines, width());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    lines.draw(&painter, {});
}

/// Breaks the text into lines of at most `width`; returns the height of them all.
int WrappingLabel::layOut(QTextLayout& lines, int width) const
{
    lines.setTextOption([] {
        QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    qreal height = 0;
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    lines.endLayout();
    return std::max(static_cast<int>(std::ceil(height)), fontMetrics().height());
}

} // namespace voltmere
