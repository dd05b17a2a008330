#include "linux/ui/views.h"

#include "linux/ui/theme.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace voltmere {

QString plainToolTip(const QString& text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
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
    setFixedSize(side, side);
}

void PictureView::paintEvent(QPaintEvent* /*event*/)
{
    const DrawnImage image = picture(palette().color(foregroundRole()));
    QPainter(this).drawImage(rect(), image.rendered(devicePixelRatioF()));
}

namespace {

constexpr int rowsAtOnce = 12;

/// Makes a long list scroll. Some styles otherwise open it as a menu as tall as the screen.
class PickerStyle : public QProxyStyle {
public:
    explicit PickerStyle(QObject* parent) { setParent(parent); }

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

SettingPicker::SettingPicker(QWidget* parent)
    : QComboBox(parent)
{
    setStyle(new PickerStyle(this));
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
