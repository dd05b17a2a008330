#pragma once

#include "linux/ui/drawn_image.h"
#include "ports/desktop.h"

#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QTextLayout;

namespace voltmere {

// The small views that the panel and the snooze alert are made of.

/// A text that is fit to be shown, as Qt takes it.
inline QString asQt(const std::string& text)
{
    return QString::fromStdString(text);
}

/// A tooltip that shows `text` as it stands. A tooltip is otherwise read as markup when it looks
/// like it.
QString plainToolTip(const QString& text);

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

/// Plain text over as many lines as it needs in the width there is. Unlike a QLabel it also breaks
/// within a word that is longer than a line, so that nothing is cut off.
class WrappingLabel : public QLabel {
public:
    explicit WrappingLabel(QWidget* parent);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int layOut(QTextLayout& lines, int width) const;
};

/// A thin line across, between two groups of rows.
class Divider : public QWidget {
public:
    explicit Divider(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shows a square image at the resolution of the screen that it is on, and in the text's colour
/// where the image takes one. Stays empty where there is no image.
class PictureView : public QWidget {
public:
    using Picture = std::function<std::optional<DrawnImage>(const QColor& textColour)>;

    /// `side` is in points.
    PictureView(int side, Picture picture, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture picture;
};

/// A choice among fixed values. It reports what a person chooses and nothing else: not what the
/// program selects, and not a wheel that passes over it.
class SettingPicker : public QComboBox {
public:
    explicit SettingPicker(QWidget* parent);

    /// Offers and selects what `popUp` says, which always has the same number of choices.
    template<typename Value>
    void present(const PopUp<Value>& popUp)
    {
        present(popUp.titles, popUp.selected);
    }

    /// Tells assistive technology what the picker is for: by its accessible name and, where a
    /// picker's name is taken to be its selection (Qt on Linux), by a hidden label that belongs to
    /// it. The picker must already be among its siblings.
    void setName(const QString& name);

    /// The selected choice, counted from 0. There must be one.
    std::size_t choice() const { return static_cast<std::size_t>(currentIndex()); }

    /// Calls `action` whenever a person chooses, also the selected choice again.
    void onChoice(std::function<void(std::size_t choice)> action);

private:
    void present(const std::vector<std::string>& titles, std::optional<std::size_t> selected);

    QLabel* label = nullptr;
};

} // namespace voltmere
