// SPDX-License-Identifier: MIT
#include "media_files/pictures/picture_cache.h"

namespace tallyframe {

namespace {

std::size_t size_of(const image_data& picture)
{
    constexpr std::size_t bookkeeping = 256;
    return (picture ? picture->rgb.size() : 0) + bookkeeping;
}

} // namespace

image_data picture_cache::find(const picture_key& key)
{
    const auto found = by_key_.find(key);
    if (found == by_key_.end())
        return nullptr;
    by_age_.splice(by_age_.end(), by_age_, found->second);
    return found->second->picture;
}

void picture_cache::keep(const picture_key& key, image_data picture)
{
    if (by_key_.contains(key))
        return;
    bytes_ += size_of(picture);
    by_age_.push_back({key, std::move(picture)});
    by_key_[key] = std::prev(by_age_.end());
    while (bytes_ > most_bytes_) {
        bytes_ -= size_of(by_age_.front().picture);
        by_key_.erase(by_age_.front().key);
        by_age_.pop_front();
    }
}

} // namespace tallyframe
