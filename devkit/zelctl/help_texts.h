// SPDX-License-Identifier: Apache-2.0

// The longer texts of --help.
#pragma once

namespace zelctl {

inline constexpr const char* kExamples =
    "Examples:\n"
    "  zelctl modes\n"
    "  zelctl render srgb\n"
    "  zelctl render 1 --color-transform night:3400 --dimming 0.6 --steps\n"
    "  zelctl render srgb --from native --json\n"
    "  zelctl render srgb --image in.png -o out.png\n"
    "  zelctl plot srgb --color-transform night:3400 -o srgb.svg\n"
    "  zelctl export srgb --format clf -o srgb.clf\n"
    "  zelctl report -o report.html\n"
    "  zelctl import measured.ti3 --bit-depth 10 --targets srgb,display_p3 -o imported.json\n"
    "  zelctl validate --parser libmy-parser.so --arg my-panel.json\n"
    "  zelctl --panel my-panel.json --log-level 2 assets native\n"
    "\n"
    "Exit status: 0; 1 when a call of the plug-in or a rule of validate failed, or with --strict\n"
    "when the host would not get an answer whole; 2 for a wrong mode, file or number.";

inline constexpr const char* kModesHelp =
    "Examples:\n"
    "  zelctl modes\n"
    "  zelctl modes --json --panel my-panel.json";

inline constexpr const char* kCapsHelp =
    "Examples:\n"
    "  zelctl caps\n"
    "  zelctl caps --json";

inline constexpr const char* kDitherHelp =
    "Examples:\n"
    "  zelctl dither\n"
    "  zelctl dither --json --tables";

inline constexpr const char* kAssetsHelp =
    "Examples:\n"
    "  zelctl assets vivid\n"
    "  zelctl assets vivid --strict";

inline constexpr const char* kRenderHelp =
    "Examples:\n"
    "  zelctl render srgb --color-transform night:3400 --dimming 0.6 --steps\n"
    "  zelctl render display_p3 --from native --repeat 3\n"
    "  zelctl render srgb --image in.png -o out.png\n"
    "\n"
    "The second table shows the PCC block after each call: per output channel its offset (in\n"
    "1/255), the factors of R, G and B, and the seven higher-order terms t4 to t10.\n"
    "\n"
    "The input picture holds the mode's signal. A file that states another gamma than sRGB's is\n"
    "converted to sRGB's first; a profile in it is not looked at. The output picture holds what\n"
    "the panel is driven with after the last call: on the panel itself, without colour\n"
    "management, it looks like the mode. So its file states no gamma and no colour space.\n"
    "8 bits stay 8 and 16 stay 16; alpha is kept.\n"
    "At the default table sizes the darkest codes become black, as they do on a device; with\n"
    "--igc-bits 16 they stay apart.";

inline constexpr const char* kPlotHelp =
    "Examples:\n"
    "  zelctl plot display_p3 -o display_p3.svg\n"
    "  zelctl plot srgb --what pcc --color-transform night:3400 -o night.png\n"
    "\n"
    "gamut   CIE 1931 xy: the panel's primaries, those of the mode's content (target), and what\n"
    "        is shown of them with all settings; both primaries are read from --panel\n"
    "curves  the IGC and GC tables\n"
    "pcc     what the PCC block makes of red, green, blue and white: for the mode alone, then\n"
    "        with colour transform, LTM and dimming, as far as they are given";

inline constexpr const char* kExportHelp =
    "Examples:\n"
    "  zelctl export srgb --format clf -o srgb.clf\n"
    "  zelctl export srgb --format cube --size 33 -o srgb.cube\n"
    "  zelctl export native --format icc -o panel.icc\n"
    "\n"
    "clf    Common LUT Format 3: IGC, gamut, PCC and GC block by block, exactly; refused where\n"
    "       the PCC block has more terms than a matrix with offsets\n"
    "cube   3D LUT: the same blocks, sampled; the file states what that costs\n"
    "icc    display profile of the panel itself, matrix and curves; MODE must be one that asks\n"
    "       for the panel's own colours, as native does, and takes no colour settings\n"
    "ti3    XYZ of test patches, as ArgyllCMS reads it\n"
    "csv    tables of the colour blocks, a row for each entry\n"
    "json   tables of the colour blocks, and all blocks\n"
    "\n"
    "docs/formats.md says what each keeps and loses.";

inline constexpr const char* kReportHelp =
    "Examples:\n"
    "  zelctl report -o report.html\n"
    "  zelctl report srgb display_p3 --color-transform night:3400 -o night.html\n"
    "  zelctl report srgb --patches srgb.ti1\n"
    "\n"
    "Shows for each mode, from the blocks that the plug-in returned and the panel's description:\n"
    "gamut and its coverage, CIEDE2000 of 24 ColorChecker patches, 33 greys, primaries and\n"
    "secondaries, error of white, tone curve, and what colour transform, LTM and dimming do to\n"
    "white and primaries, as far as they are given. Patches are judged without these three.\n"
    "--json prints the same figures, with or without a page.\n"
    "\n"
    "A meter's program shows the patches of --patches and writes a .ti3 (CGATS text); with\n"
    "--measured the page compares it with target and prediction.";

inline constexpr const char* kTargetsHelp =
    "Modes beside native: srgb, display_p3, dcip3,\n"
    "bt2020_hlg, bt2020_st2084";

inline constexpr const char* kImportHelp =
    "Examples:\n"
    "  zelctl import measured.ti3 --bit-depth 10 -o imported.json\n"
    "  zelctl import panel.icc --peak 450 --black 0.2 --bit-depth 8 --targets srgb -o laptop.json\n"
    "\n"
    "Reads ICC display profiles (matrix and TRC curves) and CGATS measurements (CTI3 with RGB\n"
    "and XYZ). What the file doesn't say must be said by an option; where both say something,\n"
    "the option counts. Prints where each figure came from, what was assumed and how far the\n"
    "description is from the measurements; the same lines stand in the description's\n"
    "\"source\".";

inline constexpr const char* kValidateHelp =
    "Examples:\n"
    "  zelctl validate\n"
    "  zelctl validate --parser libmy-parser.so --arg my-panel.json --timeout 30\n"
    "\n"
    "Opens the libraries itself, without the plug-in, and calls them as it would. With neither\n"
    "--parser nor --algo both, as --plugin finds them by name: in LD_LIBRARY_PATH, beside it, or\n"
    "where the system keeps libraries. A library runs in a process of its own: one that crashes,\n"
    "ends the process or does not answer fails a rule, and the rules after it run all the same.";

}  // namespace zelctl
