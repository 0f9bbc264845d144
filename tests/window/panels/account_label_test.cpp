// SPDX-License-Identifier: MIT
#include "window/panels/account_label.h"

#include <gtest/gtest.h>

#include <QVBoxLayout>

namespace tallyframe::window {

TEST(account_label, does_not_widen_the_window)
{
    account lost;
    lost.add(loss_kind::missing_media, 1, std::string(190, 'x'));
    QWidget page;
    auto* label = new account_label;
    (new QVBoxLayout(&page))->addWidget(label);
    label->show_account(lost);
    EXPECT_LT(page.minimumSizeHint().width(), 100);
}

} // namespace tallyframe::window
