#pragma once

#include <QWidget>

namespace voltmere {

/// A thin line across, between two groups of rows.
class Divider : public QWidget {
public:
    explicit Divider(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace voltmere
