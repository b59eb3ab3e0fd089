#include "devkit/zelctl/render_options.h"

#include "devkit/zelctl/color_transform.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/ltm_file.h"

namespace zelctl {
namespace {

// An option whose text `parse` turns into a value; its complaint names the option.
template <typename T>
void AddParsedOption(CLI::App& command, const std::string& name, std::optional<T>* value,
                     const char* type, T (*parse)(const std::string&), const char* help) {
  command
      .add_option_function<std::string>(
          name,
          [=](const std::string& text) {
            try {
              *value = parse(text);
            } catch (const UsageError& e) {
              throw UsageError(name + ": " + e.what());
            }
          },
          help)
      ->type_name(type);
}

void AddTableSize(CLI::App& command, TableSize* size) {
  const std::string option = "--" + std::string(size->name);
  command
      .add_option(option + "-entries", size->entries,
                  "Entries of the table; default " + std::to_string(size->usual_entries))
      ->check(CLI::Range(uint32_t{1}, size->max_entries).description(""))
      ->type_name("N");
  command
      .add_option(option + "-bits", size->bits,
                  "Bit depth of an entry; default " + std::to_string(size->usual_bits))
      ->type_name("N");
}

}  // namespace

void AddRenderOptions(CLI::App& command, RenderOptions* options) {
  AddParsedOption(command, "--color-transform", &options->color_transform, "TRANSFORM",
                  ParseColorTransform, kColorTransformHelp);
  AddParsedOption(command, "--ltm", &options->ltm, "FILE", ReadLtmFile, kLtmHelp);
  AddParsedOption(command, "--dimming", &options->dimming, "F", ParseNumber,
                  "Factor on the whole PCC block");
  for (TableSize* size : {&options->igc, &options->gc, &options->gamut}) {
    AddTableSize(command, size);
  }
  command.add_flag("--calibration", options->calibration, "Announce the calibration mode first");
}

void ApplySizesAndNotifications(const RenderOptions& options, HostSession* session) {
  if (options.calibration) session->Notify(velaricolor::kVcDisplayCalibrationMode);
  for (const TableSize* size : {&options.igc, &options.gc, &options.gamut}) {
    if (!size->entries && !size->bits) continue;
    session->Set(size->property, velaricolor::PostBlendHwConfig{
                                     .num_of_entries = size->entries.value_or(size->usual_entries),
                                     .bit_depth = size->BitDepth()});
  }
}

}  // namespace zelctl
