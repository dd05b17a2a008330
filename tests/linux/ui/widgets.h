#pragma once

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QPalette>
#include <QTest>
#include <QTextDocument>
#include <QWheelEvent>

#include <string>

namespace voltmere {

inline QColor textColour(const QWidget& widget)
{
    return widget.palette().color(QPalette::WindowText);
}

/// Chooses an entry of a picker the way a person does: opens the list and presses Return on it.
inline void chooseEntry(QComboBox& picker, const QString& text)
{
    const int row = picker.findText(text);
    ASSERT_GE(row, 0) << text.toStdString();
    picker.showPopup();
    picker.view()->setCurrentIndex(picker.model()->index(row, 0));
    QTest::keyClick(picker.view(), Qt::Key_Return);
}

inline void turnWheel(QWidget& widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent wheel(middle, widget.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
}

/// What a screen reader calls a control: its label where one belongs to it, else its own name.
inline std::string spokenName(QWidget& widget)
{
    auto* const control = QAccessible::queryAccessibleInterface(&widget);
    const auto labels = control->relations(QAccessible::Label);
    const auto* const named = labels.isEmpty() ? control : labels.front().first;
    return named->text(QAccessible::Name).toStdString();
}

/// The text that a person reads in the tooltip.
inline QString shownToolTip(const QWidget& widget)
{
    QTextDocument document;
    document.setHtml(widget.toolTip());
    return document.toPlainText();
}

} // namespace voltmere
