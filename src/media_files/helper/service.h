// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe {

/// Answers what comes over a socket (media_protocol.h) until the other side closes it. False when that asks
/// for something that is no question.
bool answer_questions(int socket);

} // namespace tallyframe
