// SPDX-License-Identifier: MIT
#include "window/panels/account_label.h"

#include "window/models/qt_text.h"

#include <QStringList>

namespace tallyframe::window {

account_label::account_label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum); // a long path must not widen the window
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    hide();
}

void account_label::show_account(const account& lost)
{
    QStringList sentences;
    for (const std::string& sentence : sentences_of(lost))
        sentences << qt_text(sentence);
    setText(sentences.join('\n'));
    setToolTip(tool_tip_text(text()));
    setVisible(!sentences.isEmpty());
}

} // namespace tallyframe::window
