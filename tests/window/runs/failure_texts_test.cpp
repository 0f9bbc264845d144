// SPDX-License-Identifier: MIT
#include "run/failures.h"
#include "window/runs/failure_texts.h"
#include "writers/writer.h"

#include <gtest/gtest.h>

#include <new>

namespace tallyframe::window {

namespace {

std::string both(const alert_texts& texts)
{
    return (texts.message_text + " | " + texts.informative_text).toStdString();
}

template <class Failure>
std::string after_analysis(const Failure& failure)
{
    return both(texts_for_analysis(std::make_exception_ptr(failure)));
}

template <class Failure>
std::string after_saving(const Failure& failure)
{
    return both(texts_for_saving(std::make_exception_ptr(failure)));
}

} // namespace

TEST(texts_for_analysis, are_the_sentence_of_the_failure_or_what_the_machine_lacks)
{
    EXPECT_EQ(after_analysis(std::bad_alloc()),
              "There is not enough memory for this document | Close other applications and try again.");
    const std::string texts = after_analysis(failure("This sequence has no timebase"));
    EXPECT_TRUE(texts.starts_with("There was a problem converting this XML | ")) << texts;
    EXPECT_NE(texts.find("This sequence has no timebase"), std::string::npos) << texts;
}

TEST(texts_for_saving, tell_what_helps_against_a_sheet_that_is_too_long)
{
    EXPECT_EQ(after_saving(sheet_too_long("Filters", "The sheet \"Filters\" has 70000 rows.")),
              "The report could not be saved | The sheet \"Filters\" has 70000 rows.\n"
              "Tick fewer tracks, or leave that sheet out on the page \"Content\".");
    EXPECT_EQ(after_saving(sheet_too_long("All Reels", "The sheet \"All Reels\" has 70000 rows.")),
              "The report could not be saved | The sheet \"All Reels\" has 70000 rows.\n"
              "Tick fewer tracks, or report enabled clips only.");
}

TEST(texts_for_saving, are_the_sentence_of_the_failure_or_what_the_machine_lacks)
{
    EXPECT_EQ(after_saving(failure("The disk is full.")),
              "The report could not be saved | The disk is full.");
    EXPECT_EQ(after_saving(std::bad_alloc()), "The report could not be saved | There is not enough memory.");
}

TEST(texts_for_saving, ask_to_report_what_nobody_expected)
{
    const std::string texts = after_saving(std::logic_error("vector::at"));
    EXPECT_TRUE(texts.starts_with("There was a problem converting this XML | Please zip up the XML file"))
        << texts;
    EXPECT_NE(texts.find("\n\n\tvector::at\n\n\t"), std::string::npos) << texts;
}

} // namespace tallyframe::window
