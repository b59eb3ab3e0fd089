// SPDX-License-Identifier: Apache-2.0

// Everything that the author of a mode parser or of an algorithm library includes: both
// interfaces with their factories, the envelope, the ids that the plug-in sends, and
// every record on the libraries' side. Nearly all of it is in namespace tarn. The block
// names and result codes are in velaricolor, what both sides share is in zeltarn, and
// pcc_coeff_data is in no namespace.
//
// C++17 or later, libc++, 64 bits. Terms: docs/glossary.md.
//
// The typed record that a parser puts into HwConfigPayload::payload, by
// HwConfigPayload::hw_block. State the size as HwConfigPayload::len; the record's
// `version` is the same number, and set:
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
// A block of any other name ends the list, also one with another name of
// plugin/block_names.h: that block and those after it don't reach the host.
//
// Some odd things are part of the contract and stay: the spelling of pcc_coeff_data and
// its place outside every namespace; kVersion of ColorModeList, which is 96 although the
// record has 32 bytes.
#pragma once

#include "bridge/tarn_intf.h"
#include "bridge/zel_ids.h"
#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/hw_config_payload.h"
#include "convert/pa_de_config.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/payload.h"
#include "interface/result_codes.h"
#include "modes/color_mode.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"
#include "pcc/pcc_merge.h"
#include "plugin/names.h"
