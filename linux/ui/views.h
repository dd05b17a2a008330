#pragma once

#include <QLabel>

class QTextLayout;

namespace voltmere {

/// Plain text over as many lines as it needs in the width there is. Other than a QLabel it also
/// breaks within a word that is longer than a line, so that nothing is cut off.
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

} // namespace voltmere
