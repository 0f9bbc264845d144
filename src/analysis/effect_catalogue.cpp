// SPDX-License-Identifier: MIT
#include "analysis/effect_catalogue.h"

#include <algorithm>
#include <array>
#include <functional>

// The lists are sorted, so that they can be searched by halves.

namespace tallyframe {

namespace {

constexpr std::string_view wrapper_prefix = "FxPlugWrapper:";

/// Filters in a plug-in wrapper, without its prefix.
constexpr std::array<std::string_view, 106> wrapped_filters = {
    "000BAA25_418E_412B_8649_CF5C7C2771E3", "007B7766_2269_4D15_AE06_C11A9AE72B0E",
    "01D6BDCE_4E12_11D9_9271_000A95AFC10A", "0ACFAE37_4FAF_4D60_A50C_46E422EE0CD7",
    "0D6E968B_0291_43E2_A8DA_88EB80E9C4B2", "0F22175E_A8DD_4A8B_A971_96BD7A35FFCC",
    "0F3B36EF_B955_4471_87C6_9EE2A74AFE5E", "10A46FDA_13E9_4167_B8AE_1A7204EB5139",
    "11C0E095_5F4F_46E2_AE28_F56ED7D38D7E", "182BAC6C_B38A_4B1D_9269_8190FD1E5C42",
    "1A32EFEF_6687_401B_A078_300A7AE8F621", "1AF9D5FE_EC69_4021_BA8C_39F9BE738AF1",
    "1EFA89E8_CFDA_4D08_B833_33F01A4B9139", "220963F2_8E3F_4642_A080_C064CA0B487E",
    "267EDBAB_297C_4BF4_B741_A166B5997C9B", "26B622BE_5164_4649_BD5E_10603746C793",
    "2AC86D66_BBD2_467B_B257_6C5E182488F4", "2CA36FA3_FE92_4E46_B68F_FDB242831254",
    "2D69D3F6_6145_428B_905B_249A76E70830", "2DB30B44_28E5_4A3C_BCBA_6B8D3966F4C6",
    "2E4DBB0A_A950_4896_BC2D_A5B0CFF7FAC6", "2E7B1340_5D4F_4015_8AA0_53BEB9F2CA52",
    "2FF8887B_E673_4727_9601_1B3353531C10", "3168D40C_AF34_401F_81DA_CB50EC5DD5D0",
    "3286E661_A40D_40BE_82AB_1852FFAF91E0", "32AB5EE1_BACB_4B81_B44E_6D1E643C8D00",
    "37C59CC3_8FD8_4460_A17E_71B32254FAD7", "3A359CB1_0572_48AD_8623_4D5A681466F5",
    "409AA5EF_5327_48C6_A650_DE16A7923DD8", "42D649CE_8CAA_4BCC_8F59_50E1009B03CE",
    "448206B5_384F_4056_88C8_369B8AEEA2B0", "46396CAD_950B_4EA3_92F3_0CC54DF53AC9",
    "49073CFD_8F41_45B7_BF71_824C8C166F42", "4C36AECF_53D9_42A8_AD43_9578B00AE01C",
    "50387134_338C_42A2_8078_7DF9D7DB36EE", "5599C557_CDC0_4112_B2C4_355E9A1A902E",
    "5A65EC34_AA97_4A6E_B40D_DFEFD46364C5", "5A913CA7_CA5C_4EB5_951C_DDF4EDEC5B65",
    "5C96D4F9_16FC_4D7F_A4DE_F73D5D0E83BA", "618700C0_DCCC_42C1_BAC9_0BC9DA5B70F9",
    "6209E095_64E4_11D9_B08D_000A95AF90F2", "62A7EF56_178A_4D81_AF6A_C1B77A7D9519",
    "6968E691_88C2_4FAC_8864_674BD75C777F", "6A06083A_BF89_49B1_9E3D_A2EB1ACBA205",
    "6AFD20E9_70D0_48F2_A5DD_97FC7B3E2BC4", "6C0F1215_6017_44F0_82C8_1B265FDC16CB",
    "6EFE2B74_1702_4829_B98E_E619501D1F16", "70471B0A_5D9D_4699_AEEE_CCFC84045B4B",
    "710CFB1F_16B3_48A2_8366_67BE752695CF", "717D6E01_83F4_4A4B_AF92_42AABA4B176C",
    "736B5FE6_AA7F_4584_9669_B01425D8286E", "73F69C87_7226_4F7A_81F2_F5E378501423",
    "7438BC75_716C_4D49_9613_7EE2834B9B7B", "824B3514_C6DF_465A_99B9_D60CA063D6CF",
    "85C01B33_3560_45E5_959E_5C265B0A8977", "8777A5DD_CDDA_4707_8454_D648943210D9",
    "8B8B4934_BD85_43BC_A63B_D7A01C4C0191", "8CB75514_C0FE_4418_B38D_93393EF651AF",
    "8F9F88CF_F1DC_4C7E_8946_1A8B53B4F53A", "96AFC322_287E_4014_9EFD_763CD9813E17",
    "9A527DF8_790C_4FD7_B800_116A41B91E24", "9A62DCFC_C9AE_43A7_B2D1_0FB223E90714",
    "9B5C17D9_1AC3_4B04_B8F3_59C1420963BF", "9C655247_E514_458B_83BA_B3F63EFFD241",
    "9D6E32F9_7C04_4207_B1B5_A480780B2B9D", "9EC097B0_378D_4550_B47F_4E01114C2C01",
    "9F1EEA3B_85F9_4D8F_AAE4_E4134D502D2D", "9F2DAEB8_1875_4E0E_B62F_DF1E28C1999B",
    "9F9DB65C_3D57_45D5_8F54_2AD9770875C3", "A0CE702C_9875_4C9F_9A9A_F0968C4F4A90",
    "A417EA22_7BF3_44E4_BA42_D091E3355BBB", "A4519C66_916B_470E_B21F_9898EBEAE560",
    "A7077089_AA05_44F8_98E8_0C90E446F447", "ABFED81E_35D9_429C_AB47_438C1FB5D9DE",
    "ACDB3E3B_DEEA_4973_B918_2E355750B995", "B074E0A5_BE6F_43B4_898A_AB0A44189CD9",
    "B13B57AC_811B_4A24_BB5A_2167A3C66F5F", "B2E0DE39_119F_4AD6_8796_C18BF8FE27B8",
    "B69B650B_EAAE_412D_89BC_EDED0A1CDCC5", "B7F71E12_4E10_11D9_A0DA_000A95AFC10A",
    "BBE3BAB7_7743_4140_884C_DB7712AAFB88", "BE1A5748_322A_4D25_8107_F3961E0BC21A",
    "C1278154_B061_453F_8BDE_9F70AB2E6066", "C423A28F_C016_4133_B120_22FF2E9A7862",
    "C67E6AD5_C16B_40CE_AA72_A4F88EDDD990", "CECECA09_7686_4EBA_A9AA_585A3F5B322E",
    "CF2A478A_93F6_4505_B3DA_D030CDBC88A5", "D2342006_51C4_4439_8E89_E970F135E21C",
    "D23AF030_B0BF_44DF_B622_7C9EA0DF5744", "D4902242_F23A_49D4_8002_8A8991BF52FB",
    "D4A4E04E_8127_472A_9390_53A2861F22C3", "D6245DC0_5D17_4847_ABB0_C4D01C3FA3F7",
    "D7186443_2103_465D_A035_40C390F236EB", "D995BBCF_F766_4950_89D5_7A4828CD9B6F",
    "DEB7CD03_0C92_416A_B42A_656FB37530A1", "E1134541_27A1_45CD_972B_AD61D9528316",
    "E472D646_2C92_464E_98A1_91CF8F162AD8", "E92A99A6_A2E5_44A0_B29C_80674F4003D0",
    "E9B93275_A56D_4012_BEF6_5DD59A74B344", "EA4CD041_900C_4D48_90A6_E64CA1EB60CA",
    "EB96FF9E_5863_4770_B7B5_65CB9BBF8E3B", "F63A2C1A_551A_4061_8DEF_F20183056ABA",
    "F6CC79AD_7C35_4AB0_BF10_527994BCD143", "F7F4A6D4_09A3_493F_A345_3AA779595838",
    "FB917FD2_68DF_4BE7_A313_82124F6DE776", "FBED5D89_8D51_451E_8331_D02F15DE3FA1",
};

/// Filters whose identifier is their name.
constexpr std::array<std::string_view, 85> named_filters = {
    "Anti-alias",
    "Arithmetic",
    "Basic 3D",
    "Basic Border",
    "Bevel",
    "Blink",
    "Blue and Green Screen",
    "Blur",
    "Brightness and Contrast",
    "Brightness and Contrast (Bezier)",
    "Broadcast Safe",
    "Bumpmap",
    "Channel Blur",
    "Channel Offset",
    "Chroma Keyer",
    "Color Balance",
    "Color Corrector",
    "Color Corrector 3-way",
    "Color Key",
    "Color Offset",
    "Color Smoothing - 4:1:1",
    "Color Smoothing - 4:2:2",
    "Color Style",
    "Color Tint",
    "ColorSync",
    "Compound Arithmetic",
    "Curl",
    "Cylinder",
    "De-interlace",
    "Desaturate",
    "Desaturate Highlights",
    "Desaturate Lows",
    "Difference Matte",
    "Diffuse",
    "Displace",
    "Edge Detection",
    "Eight-Point Garbage Matte",
    "Emboss",
    "Extract",
    "Find Edges",
    "Fisheye",
    "Flicker Filter",
    "Flop",
    "Four-Point Garbage Matte",
    "Gamma Correction",
    "Gaussian Blur",
    "General Convolution",
    "HSL Balance",
    "Image Mask",
    "Invert",
    "Lens Flare",
    "Levels",
    "Luma Key",
    "Mask Feather",
    "Mask Shape",
    "Matte Choker",
    "Mirror",
    "Pond Ripple",
    "Posterize",
    "Proc Amp",
    "RGB Balance",
    "RGB Limit",
    "Radial Blur",
    "Replicate",
    "Ripple",
    "Rotate",
    "Sepia",
    "Sharpen",
    "Shift Fields",
    "Soft Edges",
    "Solarize",
    "Spill Suppressor - Blue",
    "Spill Suppressor - Green",
    "Stop Motion Blur",
    "Strobe",
    "Timecode Generator",
    "Timecode Reader",
    "Tint",
    "Unsharp Mask",
    "Viewfinder",
    "Wave",
    "Whirlpool",
    "Widescreen",
    "Wind Blur",
    "Zoom Blur",
};

/// Audio units: type ("aufx"), subtype, maker.
constexpr std::array<std::string_view, 34> audio_units = {
    "{61756678, 33426e64, 4b657947}", "{61756678, 42506173, 4b657947}", "{61756678, 42537470, 4b657947}",
    "{61756678, 436f6d70, 4b657947}", "{61756678, 44434e74, 4b657947}", "{61756678, 4551506d, 4b657947}",
    "{61756678, 4563686f, 4b657947}", "{61756678, 4761696e, 4b657947}", "{61756678, 48506173, 4b657947}",
    "{61756678, 48536c66, 4b657947}", "{61756678, 486d526d, 4b657947}", "{61756678, 4c506173, 4b657947}",
    "{61756678, 4c536c66, 4b657947}", "{61756678, 52767262, 4b657947}", "{61756678, 56447070, 4b657947}",
    "{61756678, 56447373, 4b657947}", "{61756678, 58706e64, 4b657947}", "{61756678, 62706173, 6170706c}",
    "{61756678, 64636d70, 6170706c}", "{61756678, 64656c79, 6170706c}", "{61756678, 64697374, 6170706c}",
    "{61756678, 66696c74, 6170706c}", "{61756678, 67726571, 6170706c}", "{61756678, 68706173, 6170706c}",
    "{61756678, 68736866, 6170706c}", "{61756678, 6c6d7472, 6170706c}", "{61756678, 6c706173, 6170706c}",
    "{61756678, 6c736866, 6170706c}", "{61756678, 6d636d70, 6170706c}", "{61756678, 6e736e64, 6170706c}",
    "{61756678, 706d6571, 6170706c}", "{61756678, 726f6772, 6170706c}", "{61756678, 73646c79, 6170706c}",
    "{61756678, 746d7074, 6170706c}",
};

/// As the timeline shows them: category and name, or a bare name.
constexpr std::array<std::string_view, 63> transitions = {
    "3D Simulation ▸ Cross Zoom",
    "3D Simulation ▸ Cube Spin",
    "3D Simulation ▸ Spin3D",
    "3D Simulation ▸ Spinback3D",
    "3D Simulation ▸ Swing",
    "3D Simulation ▸ Zoom",
    "Channel Compositor",
    "Chroma Key",
    "Cross Fade ( 0dB)",
    "Cross Fade (+3dB)",
    "Dissolve ▸ Additive Dissolve",
    "Dissolve ▸ Cross Dissolve",
    "Dissolve ▸ Dip to Color Dissolve",
    "Dissolve ▸ Dither Dissolve",
    "Dissolve ▸ Fade In Fade Out Dissolve",
    "Dissolve ▸ Non-Additive Dissolve",
    "Dissolve ▸ Ripple Dissolve",
    "Explode",
    "Gradient Wipe",
    "Implode",
    "Iris",
    "Iris ▸ Cross Iris",
    "Iris ▸ Diamond Iris",
    "Iris ▸ Oval Iris",
    "Iris ▸ Point Iris",
    "Iris ▸ Rectangle Iris",
    "Iris ▸ Star Iris",
    "Map ▸ Channel Map",
    "Map ▸ Luminance Map",
    "Matrix Wipe",
    "Page Peel ▸ Page Peel",
    "Push",
    "Radial",
    "Slide",
    "Slide ▸ Band Slide",
    "Slide ▸ Box Slide",
    "Slide ▸ Center Split Slide",
    "Slide ▸ Multi Spin Slide",
    "Slide ▸ Push Slide",
    "Slide ▸ Spin Slide",
    "Slide ▸ Split Slide",
    "Slide ▸ Swap Slide",
    "Stretch ▸ Cross Stretch",
    "Stretch ▸ Squeeze",
    "Stretch ▸ Squeeze and Stretch",
    "Stretch ▸ Stretch",
    "Wipe",
    "Wipe ▸ Alpha Transition",
    "Wipe ▸ Band Wipe",
    "Wipe ▸ Center Wipe",
    "Wipe ▸ Checker Wipe",
    "Wipe ▸ Checkerboard Wipe",
    "Wipe ▸ Clock Wipe",
    "Wipe ▸ Edge Wipe",
    "Wipe ▸ Gradient Wipe",
    "Wipe ▸ Inset Wipe",
    "Wipe ▸ Jaws Wipe",
    "Wipe ▸ Random Edge Wipe",
    "Wipe ▸ V Wipe",
    "Wipe ▸ Venetian Blind Wipe",
    "Wipe ▸ Wrap Wipe",
    "Wipe ▸ Zig-Zag Wipe",
    "Zoom",
};

template <std::size_t Count>
constexpr bool is_strictly_sorted(const std::array<std::string_view, Count>& list)
{
    return std::adjacent_find(list.begin(), list.end(), std::greater_equal<>{}) == list.end();
}
static_assert(is_strictly_sorted(wrapped_filters));
static_assert(is_strictly_sorted(named_filters));
static_assert(is_strictly_sorted(audio_units));
static_assert(is_strictly_sorted(transitions));

template <std::size_t Count>
bool has(const std::array<std::string_view, Count>& list, std::string_view text)
{
    return std::binary_search(list.begin(), list.end(), text);
}

} // namespace

bool is_apple_filter(std::string_view effectid)
{
    if (effectid.starts_with(wrapper_prefix))
        return has(wrapped_filters, effectid.substr(wrapper_prefix.size()));
    return has(named_filters, effectid) || has(audio_units, effectid);
}

std::vector<std::string> apple_filter_effectids()
{
    std::vector<std::string> effectids;
    effectids.reserve(wrapped_filters.size() + named_filters.size() + audio_units.size());
    for (const std::string_view guid : wrapped_filters)
        effectids.push_back(std::string(wrapper_prefix).append(guid));
    effectids.insert(effectids.end(), named_filters.begin(), named_filters.end());
    effectids.insert(effectids.end(), audio_units.begin(), audio_units.end());
    return effectids;
}

std::vector<std::string> apple_transitions()
{
    return {transitions.begin(), transitions.end()};
}

bool is_apple_transition(std::string_view name)
{
    return has(transitions, name);
}

} // namespace tallyframe
