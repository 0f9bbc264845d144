// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/picture_key.h"
#include "media_files/pictures/bitmap.h"

#include <cstddef>
#include <list>
#include <map>
#include <memory>

namespace tallyframe {

/// Keeps pictures until their bytes pass a limit; then the one unused for longest goes.
class picture_cache {
public:
    explicit picture_cache(std::size_t most_bytes) : most_bytes_(most_bytes) { }

    /// Null when it is not there.
    image_data find(const picture_key& key);

    bool contains(const picture_key& key) const { return by_key_.contains(key); }

    /// Null pictures are kept as well: what cannot be read need not be tried again.
    void keep(const picture_key& key, image_data picture);

private:
    struct entry {
        picture_key key;
        image_data picture;
    };

    std::size_t most_bytes_;
    std::size_t bytes_ = 0;
    std::list<entry> by_age_; ///< the one used last stands last
    std::map<picture_key, std::list<entry>::iterator> by_key_;
};

} // namespace tallyframe
