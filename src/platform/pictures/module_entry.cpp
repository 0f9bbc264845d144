// SPDX-License-Identifier: MIT
#include "platform/pictures/module_entry.h"

#include "platform/pictures/ffmpeg_thumbnailer.h"

tallyframe::thumbnailer* tallyframe_new_thumbnailer(const char* resources, tallyframe::diagnostics& out)
{
    return new tallyframe::ffmpeg_thumbnailer(resources, out);
}
