// SPDX-License-Identifier: MIT
#include "media_files/pictures/module_entry.h"

#include "media_files/pictures/ffmpeg_thumbnailer.h"

tallyframe::thumbnailer* tallyframe_new_thumbnailer(const char* resources, tallyframe::diagnostics& out)
{
    return new tallyframe::ffmpeg_thumbnailer(resources, out);
}
