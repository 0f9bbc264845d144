// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <cstddef>

class QLabel;

namespace tallyframe::window {

/// Says how many sequences the menu leaves out because they have no identifier, with a button that lists
/// them. Is not there when none is left out.
class left_out_line final : public QWidget {
    Q_OBJECT

public:
    explicit left_out_line(QWidget* parent = nullptr);

    void set_count(std::size_t left_out);

signals:
    void listing_requested();

private:
    QLabel* label_;
};

} // namespace tallyframe::window
