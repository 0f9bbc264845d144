// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe {

/// Containers that hold frames themselves. Playlists, slide shows, and descriptions of streams stay out.
inline constexpr const char* container_formats =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,mxf,mpegts,mpeg,mpegvideo,asf,flv,live_flv,ogg,gxf,dv,"
    "m4v,h264,hevc,dirac,dnxhd,vc1,mjpeg,ivf,nut,nsv,rm,swf,yuv4mpegpipe,lxf,mlv,r3d,smjpeg,bink,smk,"
    "wav,w64,aiff,caf,mp3,aac,flac,ac3,au,wv,ape,dts,amr";

/// Still pictures, known by their first bytes.
inline constexpr const char* still_formats =
    "png_pipe,jpeg_pipe,tiff_pipe,psd_pipe,bmp_pipe,dpx_pipe,exr_pipe,webp_pipe,j2k_pipe,jpegls_pipe,"
    "sgi_pipe,pam_pipe,ppm_pipe,pgm_pipe,gif";

} // namespace tallyframe
