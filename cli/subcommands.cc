#include "cli/subcommands.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/bake.h"
#include "cli/bake_results.h"
#include "cli/check.h"
#include "cli/input.h"
#include "cli/inspect.h"
#include "cli/map.h"
#include "cli/output.h"
#include "cli/play.h"
#include "cli/plot.h"
#include "cli/run.h"
#include "cli/speak.h"
#include "cli/written_formats.h"
#include "cli/wrong_usage.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

void RefuseEmpty(const CLI::Option& option, const std::string& what = "the name of a file") {
  // An unset variable of a script's must not lose its work in silence.
  if (option.count() > 0 && option.as<std::string>().empty()) {
    throw CLI::ValidationError(option.get_name(), "needs " + what);
  }
}

/// A result must not take the place of another that it is made from. (A scene may be saved in its
/// own place.)
void RefuseOverwriting(const CLI::Option& option, const std::string& output,
                       const std::vector<std::string>& inputs) {
  for (const std::string& input : inputs) {
    if (TakesPlaceOf(output, input)) {
      throw CLI::ValidationError(option.get_name(), "names a file that is read, " + output);
    }
  }
}

/// Its text can be read once.
void RefuseSharedInput(const std::vector<std::string>& inputs) {
  if (std::count(inputs.begin(), inputs.end(), kStandardInput) > 1) {
    throw CLI::ValidationError(kStandardInput, "is standard input, which only one file can be");
  }
}

/// A file's name is believed.
void RefuseEnding(const CLI::Option& option, const std::string& writer, const std::string& output) {
  const std::string problem = BrokenPromise(writer, output);
  if (!problem.empty()) throw CLI::ValidationError(option.get_name(), problem);
}

double ReadNumber(const std::string& option, std::string_view text) {
  const auto number = text::FiniteReal(text);
  if (!number) {
    throw CLI::ValidationError(option, "\"" + std::string(text) + "\" is not a number");
  }
  return *number;
}

double ReadRate(const std::string& option, std::string_view text) {
  const double rate = ReadNumber(option, text);
  // Beyond these, times and frames run together.
  if (rate < 1e-6 || rate > 1e9) {
    throw CLI::ValidationError(
        option, "\"" + std::string(text) + "\" is no rate: it is from " + "0.000001 to 1000000000");
  }
  return rate;
}

double ReadFrame(const std::string& option, std::string_view text) {
  const double frame = ReadNumber(option, text);
  if (std::abs(frame) > 1e9) {
    throw CLI::ValidationError(option, "\"" + std::string(text) + "\" is no frame: it is from " +
                                           "-1000000000 to 1000000000");
  }
  return frame;
}

/// A factor or a time in milliseconds.
template <int kMost>
double ReadAmount(const std::string& option, std::string_view text) {
  const double amount = ReadNumber(option, text);
  if (amount < 0.0 || amount > kMost) {
    throw CLI::ValidationError(
        option, "\"" + std::string(text) + "\" is not from 0 to " + std::to_string(kMost));
  }
  return amount;
}

std::vector<double> ReadTimes(const std::string& option, std::string_view text) {
  std::vector<double> times;
  for (;;) {
    const std::size_t comma = text.find(',');
    times.push_back(ReadNumber(option, text.substr(0, comma)));
    if (comma == std::string_view::npos) return times;
    text.remove_prefix(comma + 1);
  }
}

/// An option of one value that `read` turns from text into a value, or throws.
template <typename Value, typename Read>
CLI::Option* AddValue(CLI::App& command, const std::string& name, const std::string& type,
                      const std::string& description, Value& value, const Read& read) {
  return command
      .add_option_function<std::string>(
          name, [&value, name, read](const std::string& text) { value = read(name, text); },
          description)
      ->type_name(type);
}

void AddForce(CLI::App& command, bool& value) {
  command.add_flag("--force", value, "Go on also when the LBP file lacks poses that this needs");
}

/// Namespaces are written with or without the colon that parts them from a name.
CLI::Option* AddNamespace(CLI::App& command, std::string& value) {
  return command
      .add_option_function<std::string>(
          "--namespace",
          [&value](const std::string& text) {
            const std::size_t first = text.find_first_not_of(':');
            if (first == std::string::npos) {
              throw CLI::ValidationError("--namespace", "needs a name");
            }
            value = text.substr(first, text.find_last_not_of(':') - first + 1);
          },
          "Look for the bones in this namespace of the scene: jaw is NAME:jaw")
      ->type_name("NAME");
}

CLI::Option* AddTicksPerSecond(CLI::App& command, double& value) {
  return AddValue(command, "--ticks-per-second", "N",
                  "How many of the LTF file's units of time make a second [1000]", value, ReadRate);
}

void AddRun(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("run", "Open a scene, run command lines, save it");
  struct Values {
    RunOptions options;
    std::vector<std::string> lines;
    std::vector<std::string> files;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("SCENE", values->options.scene, "Maya ASCII scene (.ma)")->required();
  CLI::Option* lines = command->add_option(
      "-e", values->lines,
      "Command lines, separated by \";\". They run in the order of all -e and -f");
  lines->allow_extra_args(false)->type_name("MEL");
  CLI::Option* files = command->add_option("-f", values->files, "File of command lines");
  files->allow_extra_args(false)->type_name("FILE");
  CLI::Option* output = command->add_option("-o", values->options.output, "Save the scene here");
  output->type_name("OUT");
  CLI::Option* report = command->add_option(
      "--report", values->options.report, "Write what happened as JSON here; - is standard output");
  report->type_name("FILE");
  AddNamespace(*command, values->options.nameSpace);
  command->footer(
      "The commands are facialAnim, demBonesExportPoses, select, currentTime, setKeyframe, getAttr "
      "and undoInfo. Each ends at a \";\", at the end of its text, or before a line that begins "
      "with a command's name.");

  command->callback([=, &work] {
    RunOptions& options = values->options;
    if (lines->count() + files->count() + output->count() + report->count() == 0) {
      throw CLI::ValidationError("there is nothing to do: give -e, -f, -o or --report");
    }
    RefuseEmpty(*output);
    RefuseEmpty(*report);
    const bool areBothPrinted =
        options.output == kStandardOutput && options.report == kStandardOutput;
    if (areBothPrinted || TakesPlaceOf(options.output, options.report)) {
      throw CLI::ValidationError("-o and --report", "name the same file, " + options.output);
    }
    std::size_t line = 0;
    std::size_t file = 0;
    for (const CLI::Option* option : command->parse_order()) {
      if (option == lines) {
        const std::string& text = values->lines[line++];
        options.scripts.push_back({false, text, "-e " + std::to_string(line)});
      } else if (option == files) {
        const std::string& name = values->files[file++];
        options.scripts.push_back({true, name, InputName(name)});
      }
    }
    RefuseOverwriting(*output, options.output, values->files);
    RefuseOverwriting(*report, options.report, values->files);
    RefuseOverwriting(*report, options.report, {options.scene});
    RefuseEnding(*output, "run", options.output);
    RefuseEnding(*report, "--report", options.report);
    std::vector<std::string> inputs = values->files;
    inputs.push_back(options.scene);
    RefuseSharedInput(inputs);
    work = [values] { return Run(values->options); };
  });
}

void AddInspect(CLI::App& app, Work& work) {
  CLI::App* command =
      app.add_subcommand("inspect", "Say what is in a pose (LBP), animation (LTF) or scene file");
  struct Values {
    std::string file;
    bool asJson = false;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("FILE", values->file, "File to read")->required();
  command->add_flag("--json", values->asJson, "Everything, as JSON");
  command->callback(
      [=, &work] { work = [values] { return Inspect(values->file, values->asJson); }; });
}

CLI::Option* AddTier(CLI::App& command, std::string& value) {
  return command
      .add_option("--tier", value,
                  "The tier of a TextGrid [the only one whose name ends in \"phones\", else in "
                  "\"phone\" or "
                  "\"MAU\"], or the voice of a Papagayo project")
      ->type_name("NAME");
}

void AddCheck(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand(
      "check", "Say what is wrong with pose (LBP), animation (LTF) and timing files, or odd");
  const auto options = std::make_shared<CheckOptions>();
  command->add_option("FILE", options->files, "Files to check")->required();
  CLI::Option* scene = command->add_option(
      "--scene", options->scene, "Also say what keeps the poses from being put onto this scene");
  scene->type_name("SCENE.ma");
  AddNamespace(*command, options->nameSpace)->needs(scene);
  command->add_flag("--json", options->asJson, "The findings as JSON");
  CLI::Option* tier = AddTier(*command, options->tier);
  AddValue(
      *command, "--fps", "N",
      "Frames a second, to find sounds that are shorter than a frame [the scene's rate, else 24]",
      options->framesPerSecond, ReadRate);
  command->footer(
      "Findings go to standard output, one a line: FILE:LINE: SEVERITY: TEXT [RULE]. The exit "
      "status is 1 when one of them is an error. docs/check.md says what each rule is about.");
  command->callback([=, &work] {
    RefuseEmpty(*scene);
    RefuseEmpty(*tier, "a name");
    std::vector<std::string> inputs = options->files;
    inputs.push_back(options->scene);
    RefuseSharedInput(inputs);
    work = [options] { return Check(*options); };
  });
}

void AddPlay(CLI::App& app, Work& work) {
  CLI::App* command =
      app.add_subcommand("play", "Play an animation; write its frames as JSON or CSV");
  const auto options = std::make_shared<PlayOptions>();
  options->output = kStandardOutput;
  command->add_option("LBP", options->lbp, "Bone pose file of the face")->required();
  command->add_option("LTF", options->ltf, "Animation file")->required();
  CLI::Option* fps = AddValue(*command, "--fps", "N",
                              "Frames a second, from time 0 to the animation's length [30]",
                              options->rate.framesPerSecond, ReadRate);
  AddValue(*command, "--at", "T[,T...]",
           "Frames at these times instead, in the LTF file's unit; --at=-5,0 when the first is "
           "negative",
           options->times, ReadTimes)
      ->excludes(fps);
  AddTicksPerSecond(*command, options->rate.ticksPerSecond);
  AddForce(*command, options->force);
  CLI::Option* output = command->add_option(
      "-o", options->output, "Write here instead of to standard output; CSV when it ends in .csv");
  output->type_name("FILE");
  command->callback([=, &work] {
    RefuseEmpty(*output);
    RefuseOverwriting(*output, options->output, {options->lbp, options->ltf});
    RefuseEnding(*output, "play", options->output);
    RefuseSharedInput({options->lbp, options->ltf});
    work = [options] { return Play(*options); };
  });
}

void AddBake(CLI::App& app, Work& work) {
  CLI::App* command =
      app.add_subcommand("bake", "Play an animation onto a scene's joints, a key a frame");
  const auto options = std::make_shared<BakeOptions>();
  command->add_option("SCENE", options->scene, "Maya ASCII scene (.ma)")->required();
  command->add_option("LBP", options->lbp, "Bone pose file of the face")->required();
  command->add_option("LTF", options->ltf, "Animation file")->required();
  CLI::Option* output = command->add_option(
      "-o", options->output,
      "Save the scene here; a name that ends in .mel gets the keys alone, as a script to source");
  output->type_name("OUT")->required();
  AddValue(*command, "--fps", "N", "Frames a second [the scene's own rate]",
           options->framesPerSecond, ReadRate);
  AddTicksPerSecond(*command, options->ticksPerSecond);
  AddValue(*command, "--start", "FRAME", "The frame that time 0 falls on [0]", options->start,
           ReadFrame);
  CLI::Option* sound = command->add_option("--sound", options->sound,
                                           "Give the scene this sound, which begins at --start");
  sound->type_name("FILE.wav");
  AddNamespace(*command, options->nameSpace);
  AddForce(*command, options->force);
  command->callback([=, &work] {
    RefuseEmpty(*output);
    RefuseEmpty(*sound);
    if (options->sound == kStandardInput) {
      throw CLI::ValidationError("--sound", "the scene names the file: it needs a name");
    }
    RefuseOverwriting(*output, options->output, {options->lbp, options->ltf, options->sound});
    RefuseEnding(*output, "bake", options->output);
    RefuseSharedInput({options->scene, options->lbp, options->ltf});
    if (IsKeyScript(options->output)) {
      RefuseOverwriting(*output, options->output, {options->scene});
      if (!options->sound.empty()) {
        throw CLI::ValidationError("--sound", "goes with a scene: a script of keys holds no sound");
      }
    }
    work = [options] { return Bake(*options); };
  });
}

CLI::Option* AddMohoRate(CLI::App& command, std::optional<double>& value) {
  return AddValue(command, "--fps", "N", "Frames a second of a Moho switch file [24]", value,
                  ReadRate);
}

void AddSpeak(CLI::App& app, Work& work) {
  CLI::App* command =
      app.add_subcommand("speak", "Make an animation file (LTF) of the timing of a spoken line");
  const auto options = std::make_shared<SpeakOptions>();
  options->output = kStandardOutput;
  command
      ->add_option("TIMING", options->timing,
                   "TextGrid; Rhubarb's JSON, XML or TSV; Papagayo project; Moho switch file; or "
                   "lines of \"start end label\" in seconds")
      ->required();
  command->add_option("LBP", options->lbp, "Bone pose file of the face")->required();
  CLI::Option* output = command->add_option(
      "-o", options->output, "Write the animation here instead of to standard output");
  output->type_name("FILE.ltf");
  CLI::Option* tier = AddTier(*command, options->timingOptions.tier);
  AddValue(*command, "--ramp", "MS",
           "How far from its ends a long phone begins to be held, in milliseconds [80]",
           options->trackOptions.rampMs, ReadAmount<speech::kLongestShift>);
  AddValue(*command, "--lead", "MS", "How much earlier than the sound the mouth moves [0]",
           options->trackOptions.leadMs, ReadAmount<speech::kLongestShift>);
  AddValue(*command, "--strength", "X", "What all weights are multiplied by [1]",
           options->trackOptions.strength, ReadAmount<100>);
  CLI::Option* shapes = command->add_option(
      "--shapes", options->shapes,
      "Weights of mouth shapes in place of the built-in ones: rows as in a phoneme table");
  shapes->type_name("FILE");
  CLI::Option* unknown = command->add_option("--unknown", options->unknown,
                                             "What stands for labels that nothing else explains");
  unknown->type_name("PHONEME");
  AddMohoRate(*command, options->timingOptions.framesPerSecond);
  AddForce(*command, options->force);
  command->callback([=, &work] {
    RefuseEmpty(*output);
    RefuseEmpty(*shapes);
    RefuseEmpty(*tier, "a name");
    RefuseEmpty(*unknown, "a name");
    const std::vector<std::string> inputs = {options->timing, options->lbp, options->shapes};
    RefuseOverwriting(*output, options->output, inputs);
    RefuseEnding(*output, "speak", options->output);
    RefuseSharedInput(inputs);
    work = [options] { return Speak(*options); };
  });
}

void AddMap(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand(
      "map", "Write a pose file's phoneme table as a phoneme mapping file (.map)");
  struct Values {
    std::string lbp;
    std::string character;
    std::string output;
    bool force = false;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("LBP", values->lbp, "Bone pose file")->required();
  command->add_option("CHARACTER", values->character, "The character's name")->required();
  CLI::Option* output =
      command->add_option("-o", values->output, "Write here; - is standard output [CHARACTER.map]");
  output->type_name("FILE");
  AddForce(*command, values->force);
  command->callback([=, &work] {
    if (values->character.empty() || values->character.find_first_of("\r\n") != std::string::npos) {
      throw CLI::ValidationError("CHARACTER", "needs a name of one line");
    }
    RefuseEmpty(*output);
    if (values->output.empty()) values->output = values->character + ".map";
    RefuseOverwriting(*output, values->output, {values->lbp});
    RefuseEnding(*output, "map", values->output);
    work = [values] { return Map(values->lbp, values->character, values->output, values->force); };
  });
}

void AddPlot(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("plot", "Draw an animation file as a picture (SVG)");
  const auto options = std::make_shared<PlotOptions>();
  options->output = kStandardOutput;
  command->add_option("LTF", options->ltf, "Animation file")->required();
  CLI::Option* timing =
      command->add_option("TIMING,--timing", options->timing,
                          "Timing of what is spoken, to stand below: any file that speak takes");
  timing->type_name("FILE");
  CLI::Option* tier = AddTier(*command, options->timingOptions.tier)->needs(timing);
  AddMohoRate(*command, options->timingOptions.framesPerSecond)->needs(timing);
  AddTicksPerSecond(*command, options->ticksPerSecond);
  CLI::Option* output =
      command->add_option("-o", options->output, "Write here instead of to standard output");
  output->type_name("FILE.svg");
  command->callback([=, &work] {
    RefuseEmpty(*timing);
    RefuseEmpty(*output);
    RefuseEmpty(*tier, "a name");
    RefuseOverwriting(*output, options->output, {options->ltf, options->timing});
    RefuseEnding(*output, "plot", options->output);
    RefuseSharedInput({options->ltf, options->timing});
    work = [options] { return Plot(*options); };
  });
}

void AddHelp(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand(kHelp, "Say what a subcommand does and accepts");
  const auto name = std::make_shared<std::string>();
  const CLI::Option* option =
      command->add_option("SUBCOMMAND", *name, "Its name; without one, what there is");
  command->callback([&app, &work, option, name] {
    const CLI::App* about = &app;
    std::string title = app.get_name();
    if (option->count() > 0) {
      const auto named = app.get_subcommands(
          [&](const CLI::App* subcommand) { return subcommand->get_name() == *name; });
      if (named.empty()) throw CLI::ValidationError(NoSubcommand(app, *name));
      about = named.front();
      title += " " + *name;
    }
    work = [text = app.get_formatter()->make_help(about, title, CLI::AppFormatMode::Normal)] {
      return WriteOutput(kStandardOutput, [&](std::ostream& out) { out << text; }) ? 0 : 1;
    };
  });
}

}  // namespace

void AddSubcommands(CLI::App& app, Work& work) {
  AddRun(app, work);
  AddInspect(app, work);
  AddCheck(app, work);
  AddPlay(app, work);
  AddSpeak(app, work);
  AddBake(app, work);
  AddMap(app, work);
  AddPlot(app, work);
  AddHelp(app, work);
}

}  // namespace lipvane::cli
