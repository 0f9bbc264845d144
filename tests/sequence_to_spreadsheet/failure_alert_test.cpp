// SPDX-License-Identifier: MIT
#include "platform/application.h"
#include "run/failures.h"
#include "sequence_to_spreadsheet/failure_alert.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

TEST(alert_for, tells_a_broken_document_from_another_kind_of_file)
{
    const failure_alert broken = alert_for(load_error(load_fault::fatal_error));
    EXPECT_EQ(broken.message_text, "This XML file is incomplete or broken");
    EXPECT_EQ(broken.informative_text, "Please export the XML file again.");
    EXPECT_EQ(broken.system_log_text, "");

    const failure_alert other = alert_for(load_error(load_fault::not_xmeml));
    EXPECT_EQ(other.message_text, "This is not a Final Cut Pro XML file");
    EXPECT_EQ(other.informative_text,
              "Please choose an XML file exported from\nPremiere Pro CC or Final Cut Pro.");
}

TEST(alert_for, says_the_sentence_of_a_refusal)
{
    const failure_alert refusal = alert_for(load_error("It is a folder."));
    EXPECT_EQ(refusal.message_text, "This XML file cannot be opened");
    EXPECT_EQ(refusal.informative_text, "It is a folder.");
    EXPECT_EQ(refusal.system_log_text, "");
}

TEST(alert_for, asks_for_a_document_that_no_application_writes)
{
    const failure_alert alert = alert_for(load_error("It has no name.", load_fault::unexpected));
    EXPECT_THAT(alert.informative_text, testing::HasSubstr("body text:\n\n\tIt has no name.\n"));
}

TEST(alert_for, goes_by_kinds_and_not_by_words)
{
    EXPECT_EQ(alert_for(failure("not xmeml")).message_text, "There was a problem converting this XML");
}

TEST(alert_for, asks_for_the_document_after_an_unexpected_failure)
{
    const analysis_error error("This sequence has no timebase");
    const std::string trace = error.location_trace();
    const std::string version(application::short_version);
    const failure_alert alert = alert_for(error);
    EXPECT_EQ(alert.message_text, "There was a problem converting this XML");
    EXPECT_EQ(alert.informative_text,
              "Please zip up the XML file and email it with the subject “Tallyframe " + version
                  + " error” to " + std::string(application::support_address)
                  + " with this error message in the body text:\n\n\tThis sequence has no timebase\n\n\t"
                  + trace + "\n\n\tThanks for helping us improve Tallyframe!");
    EXPECT_EQ(alert.system_log_text, "This sequence has no timebase\n" + trace);
    EXPECT_THAT(trace, testing::StartsWith("failure_alert_test.cpp:"));
}

TEST(alert_for, does_without_the_place_of_failures_from_elsewhere)
{
    const failure_alert alert = alert_for(std::runtime_error("no such luck"));
    EXPECT_THAT(alert.informative_text, testing::HasSubstr("\n\n\tno such luck\n\n\t\n\n\tThanks"));
    EXPECT_EQ(alert.message_text, "There was a problem converting this XML");
}

} // namespace tallyframe
