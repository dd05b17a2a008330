#pragma once

#include "linux/ui/images.h"
#include "model/published.h"
#include "ports/desktop.h"

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QMetaObject>
#include <QScrollArea>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QTextLayout;

namespace voltmere {

// The small views of the panel and the snooze alert.

/// A cleaned text in Qt's form.
inline QString asQt(const std::string& text)
{
    return QString::fromStdString(text);
}

/// A tooltip that shows `text` as it stands. Otherwise Qt reads a tooltip that looks like markup as
/// markup.
QString plainToolTip(const QString& text);

/// Draws a thin line around a window without a frame, which a desktop of its colour would swallow.
/// For the window's paint event.
void drawEdge(QWidget& window);

/// One line of plain text in the available width. A text that is too long is cut in the middle and
/// stays whole as accessible name and tooltip.
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

/// Plain text in exactly the text colour of its palette, which some styles give no QLabel, over as
/// many lines as the width needs. Unlike a QLabel it also breaks within a word that is longer than
/// a line, so that nothing is cut off.
class MessageLabel : public QLabel {
public:
    /// As wide as its text, up to `widest` points. Without `widest` it takes any width that is
    /// there.
    explicit MessageLabel(QWidget* parent, std::optional<int> widest = std::nullopt);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize layOut(QTextLayout& lines, int width) const;

    std::optional<int> widest;
};

/// A thin line across, between two groups of rows.
class Divider : public QWidget {
public:
    explicit Divider(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shows a square image at the resolution of its screen, in the text's colour where the image has
/// no colours of its own.
class PictureView : public QWidget {
public:
    using Picture = std::function<DrawnImage(const QColor& textColour)>;

    /// `side` is in points at a text size of 13 pixels, and grows with the font of `parent`.
    PictureView(int side, Picture picture, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture picture;
};

/// Shows all of `content`, or as much as the work area of the screen leaves beside the other rows
/// of the window, and lets a person scroll to the rest.
class Scroller : public QScrollArea {
public:
    Scroller(QWidget* content, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Lets the box grow with its text where the style can draw it so.
void growWithText(QCheckBox& box);

/// A choice among fixed values. It reports the user's choices only: no selection by the program,
/// and no turn of the mouse wheel.
class SettingPicker : public QComboBox {
public:
    explicit SettingPicker(QWidget* parent);

    /// Takes the titles, the selection and the name of `popUp`, which must keep its number of
    /// choices. Assistive technology gets the name as accessible name and, since Qt on Linux
    /// reports the selection as a picker's name, by a hidden label that belongs to the picker,
    /// which must already be among its siblings.
    template<typename Value>
    void present(const PopUp<Value>& popUp)
    {
        present(popUp.titles, popUp.selected);
        setName(asQt(popUp.name));
    }

    /// The selected choice, counted from 0. There must be one.
    std::size_t choice() const { return static_cast<std::size_t>(currentIndex()); }

    /// Calls `action` at each choice of the user, also of the selected choice.
    void onChoice(std::function<void(std::size_t choice)> action);

private:
    void present(const std::vector<std::string>& titles, std::optional<std::size_t> selected);
    void setName(const QString& name);

    QLabel* label = nullptr;
};

/// Redraws a view once per turn of the event loop, however many properties of the model changed in
/// it. The model announces a change before it stores the value, so the redraw comes afterwards.
class RedrawScheduler {
public:
    RedrawScheduler(ChangeAnnouncer& announcer, std::function<void()> redraw)
        : redraw(std::move(redraw))
        , subscription(announcer.subscribe([this] { schedule(); }))
    {
    }

    /// Redraws in the next turn, for a reason that the model does not announce.
    void schedule()
    {
        if (!std::exchange(scheduled, true)) {
            QMetaObject::invokeMethod(
                &context,
                [this] {
                    scheduled = false;
                    redraw();
                },
                Qt::QueuedConnection);
        }
    }

private:
    QObject context; ///< drops a redraw that is still posted when the view goes away
    std::function<void()> redraw;
    Subscription subscription;
    bool scheduled = false;
};

} // namespace voltmere
