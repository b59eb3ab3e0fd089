// SPDX-License-Identifier: Apache-2.0

// Everything that the author of a host includes: the plug-in's interface, the envelope,
// ids and result codes, the names of hardware blocks, and every record on the host's
// side. Nearly all of it is in namespace velaricolor. What both sides share is in
// zeltarn, and pcc_coeff_data is in no namespace.
//
// C++17 or later, libc++, 64 bits. Terms: docs/glossary.md.
//
// The typed record that HwConfigPayload::payload owns, by HwConfigPayload::hw_block.
// The size is also HwConfigPayload::len and the record's `version`:
//
//   block                record                    bytes
//   "PostBlendGamut"     GamutPostBlendConfig     117936
//   "PostBlendIGC"       GammaPostBlendConfig         88
//   "PostBlendGC"        GammaPostBlendConfig         88
//   "PostBlendPCC"       PccPostBlendConfig          280
//   "PostBlendPa"        PaPostBlendConfig          9568
//   "PostBlendDE"        DePostBlendConfig            48
//   "PostBlendDither"    DitherPostBlendConfig        96
//   "PostBlendPaDither"  PaDitherPostBlendConfig      88
//   "PostBlendHdrBlob"   HdrBlobPostBlendConfig       32
//   "PostBlendGameBlob"  GameBlobPostBlendConfig      32
//
// The other names of plugin/block_names.h never come with a record.
//
// These odd things are part of the contract, because other programs match them letter by
// letter:
//   - pcc_coeff_data: its spelling, and its place outside every namespace
//   - texts of the log: "failed to intialize mode parser", "Falied to convert pb dither
//     hwe config to output", "from tarn to velari namespace", "GetPbDitheHwConfig",
//     "thread_handler"; the mixture of capital and small first letters; the line break
//     that ends some lines and not others
//   - kVersion of ColorModeList is 96 although the record has 32 bytes
#pragma once

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/hw_config_payload.h"
#include "convert/pa_de_config.h"
#include "handlers/color_transform_matrix.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/payload.h"
#include "interface/result_codes.h"
#include "interface/vc_ids.h"
#include "interface/vc_post_blend_interface.h"
#include "modes/color_mode.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"
