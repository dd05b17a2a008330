#include "linux/ui/views.h"

#include "linux/ui/theme.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QTextDocument>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace voltmere {

QString plainToolTip(const QString& text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

void drawEdge(QWidget& window)
{
    if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) {
        QPainter painter(&window);
        painter.setPen(edgeColour(window.palette()));
        painter.drawRect(window.rect().adjusted(0, 0, -1, -1));
    }
}

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHorizontalStretch(1);
    setSizePolicy(policy);
}

void ElidedLabel::setFullText(const QString& text)
{
    fullText = text;
    setAccessibleName(text);
    // Without a description a screen reader would read the tooltip's markup.
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

MessageLabel::MessageLabel(QWidget* parent, std::optional<int> widest)
    : QLabel(parent)
    , widest(widest)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    if (!widest) {
        setWordWrap(true); // makes the height depend on the width
        QSizePolicy policy = sizePolicy();
        policy.setHorizontalPolicy(QSizePolicy::Ignored);
        setSizePolicy(policy);
    }
}

int MessageLabel::heightForWidth(int width) const
{
    QTextLayout lines(text(), font());
    return layOut(lines, width).height();
}

QSize MessageLabel::sizeHint() const
{
    QTextLayout lines(text(), font());
    return widest ? layOut(lines, *widest) : QSize(0, fontMetrics().height());
}

void MessageLabel::paintEvent(QPaintEvent* /*event*/)
{
    QTextLayout lines(text(), font());
    const int height = layOut(lines, width()).height();
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    lines.draw(&painter, {0, std::max(0, this->height() - height) / 2.0});
}

/// Breaks the text into lines of at most `width`; returns the size of them all.
QSize MessageLabel::layOut(QTextLayout& lines, int width) const
{
    QTextOption option(alignment());
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines.setTextOption(option);
    QSizeF size;
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, size.height()});
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    lines.endLayout();
    return {qCeil(size.width()), std::max(qCeil(size.height()), fontMetrics().height())};
}

Divider::Divider(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(1);
}

void Divider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), dividerColour(palette()));
}

PictureView::PictureView(int side, Picture picture, QWidget* parent)
    : QWidget(parent)
    , picture(std::move(picture))
{
    setFixedSize(QSize(1, 1) * scaledTo(font(), side));
}

void PictureView::paintEvent(QPaintEvent* /*event*/)
{
    const DrawnImage image = picture(palette().color(foregroundRole()));
    const qreal growth = width() / static_cast<qreal>(image.size.width());
    QPainter(this).drawImage(rect(), image.rendered(devicePixelRatioF() * growth));
}

namespace {

constexpr int gapToBar = 6; // points

} // namespace

Scroller::Scroller(QWidget* content, QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setWidgetResizable(true);
    setWidget(content);
    content->setAutoFillBackground(false); // the window's own background shows
    viewport()->setAutoFillBackground(false);
}

QSize Scroller::sizeHint() const
{
    const QSize content = widget()->sizeHint();
    const QLayout& column = *window()->layout();
    const QMargins margins = column.contentsMargins();
    int room = window()->screen()->availableGeometry().height() - margins.top() - margins.bottom() -
        style()->pixelMetric(QStyle::PM_TitleBarHeight);
    for (int index = 0; index < column.count(); ++index) {
        QLayoutItem& item = *column.itemAt(index);
        if (item.widget() != this) {
            room -= column.spacing() +
                (item.hasHeightForWidth() ? item.heightForWidth(content.width())
                                          : item.sizeHint().height());
        }
    }
    return content.height() <= room
        ? content
        : QSize(content.width() + gapToBar + style()->pixelMetric(QStyle::PM_ScrollBarExtent),
                room);
}

void Scroller::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    setViewportMargins(0, 0, widget()->sizeHint().height() > height() ? gapToBar : 0, 0);
}

bool Scroller::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

namespace {

constexpr int rowsAtOnce = 12;

/// Makes a long list scroll, which some styles otherwise open as a menu as tall as the screen, and
/// a check box as large as its text asks.
class ControlStyle : public QProxyStyle {
public:
    explicit ControlStyle(QObject* parent)
        : QProxyStyle(QApplication::style()->name()) // else the one that the program began with
    {
        setParent(parent);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        const bool isSide = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
        return isSide && widget != nullptr ? scaledTo(widget->font(), usual) : usual;
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override
    {
        const auto own = [&](StyleHint asked) {
            return QProxyStyle::styleHint(asked, option, widget, returnData);
        };
        switch (hint) {
        case SH_ComboBox_Popup: // a native menu scrolls by itself
            return own(SH_ComboBox_UseNativePopup) != 0 ? own(hint) : 0;
        case SH_ComboBox_AllowWheelScrolling:
            return 0;
        default:
            return own(hint);
        }
    }
};

} // namespace

void growWithText(QCheckBox& box)
{
    box.setStyle(new ControlStyle(&box));
}

SettingPicker::SettingPicker(QWidget* parent)
    : QComboBox(parent)
{
    setStyle(new ControlStyle(this));
    setMaxVisibleItems(rowsAtOnce);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void SettingPicker::present(const std::vector<std::string>& titles,
                            std::optional<std::size_t> selected)
{
    for (int index = 0; const std::string& title : titles) {
        const QString text = QString::fromStdString(title);
        if (index == count()) {
            addItem(text);
        } else if (itemText(index) != text) {
            setItemText(index, text);
        }
        ++index;
    }
    setCurrentIndex(selected ? static_cast<int>(*selected) : -1);
}

void SettingPicker::setName(const QString& name)
{
    setAccessibleName(name);
    if (label == nullptr) {
        label = new QLabel(parentWidget());
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(this);
        label->hide();
    }
    label->setText(name);
}

void SettingPicker::onChoice(std::function<void(std::size_t choice)> action)
{
    connect(this, &QComboBox::activated, this,
            [action = std::move(action)](int index) { action(static_cast<std::size_t>(index)); });
}

} // namespace voltmere
