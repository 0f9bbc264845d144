// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace tallyframe::window {

/// A line of plain text that takes the width it is given. Of a longer text the middle is left out: a path or
/// a name is known by both its ends.
class elided_label final : public QLabel {
    Q_OBJECT

public:
    explicit elided_label(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tallyframe::window
