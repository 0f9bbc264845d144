// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tallyframe::window {

/// What stands in the window's middle while there is no preview: what to do next.
class message_page final : public QWidget {
    Q_OBJECT

public:
    explicit message_page(QWidget* parent = nullptr);

    void set_texts(const QString& headline, const QString& text, bool offers_open);

signals:
    void open_requested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* headline_;
    QLabel* text_;
    QPushButton* open_button_;
};

} // namespace tallyframe::window
