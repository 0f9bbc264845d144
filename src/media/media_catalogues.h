// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "media/media_files.h"
#include "run/progress.h"
#include "timecode/frame_rates.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tallyframe {

/// The media of a document as sequences of one rate see it.
struct media_catalogue {
    file_catalogue files;
    std::vector<std::string> reels; ///< each reel's name once, in ascending order of their bytes
};

/// The media catalogues of one document. What is read of its files depends on the rate of the sequence and on
/// nothing else of it: each rate's catalogue is read once, however many sequences are analysed.
class media_catalogues {
public:
    /// `file_elements`: all of the document, the same in every call. `seq_fcp_rate`: nothing for bins. A step
    /// of the progress for each file. The result lives as long as this.
    const media_catalogue& of(const std::vector<xml_node>& file_elements,
                              std::optional<frame_rate> seq_fcp_rate, progress& display);

private:
    struct known_catalogue {
        std::optional<frame_rate> seq_fcp_rate;
        std::unique_ptr<const media_catalogue> media;
    };
    std::vector<known_catalogue> known_;
};

} // namespace tallyframe
