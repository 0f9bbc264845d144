// SPDX-License-Identifier: MIT
#pragma once

#include "cli/run.h"

#include <sstream>
#include <string>
#include <vector>

// Runs of the command line, on documents of a few words.

namespace tallyframe::cli {

/// What a run of the command line leaves.
struct outcome {
    int code;
    std::string out;
    std::string err;
};

inline outcome run_with(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = run(arguments, out, err);
    return {code, out.str(), err.str()};
}

inline const std::string clip_item =
    "<clipitem><name>Shot</name><duration>100</duration><in>0</in><out>50</out>"
    "<start>0</start><end>50</end><file id=\"f\"><duration>100</duration>"
    "<rate><timebase>25</timebase></rate>"
    "<pathurl>file://localhost/Media/Shot.mov</pathurl></file></clipitem>";

/// A sequence with one clip.
inline std::string sequence(const std::string& name, const std::string& uuid)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>" + name
        + "</name><duration>50</duration><timecode><rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>"
          "<frame>0</frame></timecode><media><video><track>"
        + clip_item + "</track></video><audio><track/></audio></media></sequence>";
}

inline const std::string bin_clip =
    "<project><children><clip id=\"c\"><name>Loose</name><duration>100</duration><media>"
    "<video><track>"
    + clip_item + "</track></video></media></clip></children></project>";

inline std::string xmeml(const std::string& content)
{
    return R"(<?xml version="1.0"?><xmeml version="5">)" + content + "</xmeml>";
}

inline const std::string one_sequence = xmeml(sequence("Reel 1", "U-1"));
inline const std::string bins_and_two_sequences =
    xmeml(bin_clip + sequence("Reel 1", "U-1") + sequence("Reel 2", "U-2"));

} // namespace tallyframe::cli
