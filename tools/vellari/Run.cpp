#include "tools/vellari/Run.h"

#include "tools/vellari/AreaCommand.h"
#include "tools/vellari/AxesCommand.h"
#include "tools/vellari/CompareCommand.h"
#include "tools/vellari/FailureReport.h"
#include "tools/vellari/GostCommand.h"
#include "tools/vellari/GostNames.h"
#include "tools/vellari/HelpTopics.h"
#include "tools/vellari/ListCommand.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/ShowCommand.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/TransformCommand.h"
#include "tools/vellari/UnitsCommand.h"

#include <Vellari/hostkit/HostKit.h>

#include <CLI/CLI.hpp>

#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace VellariTool {

namespace {

constexpr int mostDecimals = 20;

/** The command that the line has chosen, with what it needs. */
struct TChoice {
    std::function<int()> command;
    std::string language = "en";
    TTransformOptions transform;
    TGostOptions gost;
    TAreaOptions area;
    TAxesOptions axes;
    std::string compared[2];
    std::string onError = "mark";
    std::string header = "auto";
    std::string showSystem;
    std::string showFormat = "summary";
    std::string listPattern;
    TUnitsOptions units;
    std::string topic;
};

/** The words of an option with what they mean. */
template <class Value>
struct TWord {
    char const* word;
    Value value;
};

constexpr TWord<TOnError> onErrorModes[] = {{"mark", oeMark}, {"skip", oeSkip}, {"stop", oeStop}};
constexpr TWord<THeaderMode> headerModes[] = {{"auto", hmAuto}, {"always", hmAlways}, {"never", hmNever}};

template <class Value, std::size_t Count>
std::vector<std::string> Names(TWord<Value> const (&words)[Count]) {
    std::vector<std::string> names;
    for (TWord<Value> const& row : words) {
        names.emplace_back(row.word);
    }
    return names;
}

/** @return the meaning of a word that is in the table; otherwise that of the first one. */
template <class Value, std::size_t Count>
Value ValueOf(TWord<Value> const (&words)[Count], std::string const& word) {
    for (TWord<Value> const& row : words) {
        if (word == row.word) {
            return row.value;
        }
    }
    return words[0].value;
}

/** Adds `--precision` to a command. */
CLI::Option* AddPrecision(CLI::App* command, std::string const& name, std::optional<int>* value,
                          std::string const& description) {
    return command->add_option(name, *value, description)->check(CLI::Range(0, mostDecimals))->type_name("N");
}

/** Adds what a run over points has. */
void AddPointRun(CLI::App* command, TChoice* choice, TPointRunOptions* options, TPrecision* precision) {
    command->add_option("POINTS", options->points, "CSV file of points; standard input without it")
        ->type_name("");
    command->add_option("-o,--output", options->output, "write here, complete or not at all")
        ->type_name("FILE");
    AddPrecision(
        command, "-p,--precision", &precision->all,
        "decimals of all coordinates (of seconds in sexagesimal notations); default: those of the units");
    AddPrecision(command, "--height-precision", &precision->height, "decimals of heights alone");
    command->add_option("--on-error", choice->onError, "a line that fails: mark (default), skip or stop")
        ->check(CLI::IsMember(Names(onErrorModes)))
        ->type_name("MODE");
    command->add_option("--header", choice->header, "a header: auto (default, as the input), always or never")
        ->check(CLI::IsMember(Names(headerModes)))
        ->type_name("MODE");
}

/** Takes the words of such a run. */
void FinishPointRun(TChoice const& choice, TPointRunOptions* options) {
    options->onError = ValueOf(onErrorModes, choice.onError);
    options->header = ValueOf(headerModes, choice.header);
}

/** Adds `transform`. */
void AddTransform(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("transform", "Move points from one system to another");
    TTransformOptions* const options = &choice->transform;
    command->add_option("SOURCE", options->source, "catalogue entry, zone or description file of the points")
        ->required()
        ->type_name("");
    command->add_option("TARGET", options->target, "catalogue entry, zone or description file of the result")
        ->required()
        ->type_name("");
    command
        ->add_option("--geoid-source", options->geoidOfSource,
                     "grid of the geoid over which the source's heights stand")
        ->type_name("FILE");
    command
        ->add_option("--geoid-target", options->geoidOfTarget,
                     "grid of the geoid over which the target's heights stand")
        ->type_name("FILE");
    AddPointRun(command, choice, options, &options->precision);
    command->callback([choice, options] {
        FinishPointRun(*choice, options);
        choice->command = [options] { return RunTransform(*options); };
    });
}

/** Adds `gost`. */
void AddGost(CLI::App* app, TChoice* choice) {
    CLI::App* const command =
        app->add_subcommand("gost", "Move points by the transformation of GOST R 51794");
    TGostOptions* const options = &choice->gost;
    command->add_option("--from", options->from, "datum of the points: " + GostDatumNames())
        ->type_name("DATUM");
    command->add_option("--to", options->to, "datum of the result")->type_name("DATUM");
    command->add_option("--edition", options->edition, "2001, 2008 (default) or 2017")->type_name("YEAR");
    command->add_option("--type", options->type, "coordinates: geodetic (default), geocentric or projected")
        ->type_name("TYPE");
    command->add_option("--from-type", options->fromType, "those of the points, where they differ")
        ->type_name("TYPE");
    command->add_option("--to-type", options->toType, "those of the result, where they differ")
        ->type_name("TYPE");
    command->add_flag("--parameters", options->parameters, "only tell the parameters of --from to WGS 84");
    AddPointRun(command, choice, options, &options->precision);
    command->callback([choice, options] {
        FinishPointRun(*choice, options);
        choice->command = [options] { return RunGost(*options); };
    });
}

/** Adds `area`. */
void AddArea(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("area", "Tell the area of a polygon");
    TAreaOptions* const options = &choice->area;
    command->add_option("SYSTEM", options->system, "catalogue entry, zone or description file of the corners")
        ->required()
        ->type_name("");
    command
        ->add_option("POLYGON", options->polygon, "CSV file of corners in order; standard input without it")
        ->type_name("");
    AddPrecision(command, "-p,--precision", &options->precision, "decimals; default: 3");
    command->callback([choice, options] { choice->command = [options] { return RunArea(*options); }; });
}

/** Adds `compare`. */
void AddCompare(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("compare", "Tell how two systems relate");
    char const* const names[2] = {"A", "B"};
    for (int i = 0; i < 2; ++i) {
        command->add_option(names[i], choice->compared[i], "catalogue entry, zone or description file")
            ->required()
            ->type_name("");
    }
    command->callback([choice] {
        choice->command = [choice] { return RunCompare(choice->compared[0], choice->compared[1]); };
    });
}

/** Adds `axes`. */
void AddAxes(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("axes", "Tell where the axes of a system lead");
    TAxesOptions* const options = &choice->axes;
    command->add_option("SYSTEM", options->system, "catalogue entry, zone or description file")
        ->required()
        ->type_name("");
    command->add_option("LAT", options->latitude, "latitude of a place, degrees on the system's datum")
        ->type_name("");
    command->add_option("LON", options->longitude, "its longitude, degrees from the prime meridian")
        ->type_name("");
    command->callback([choice, options] { choice->command = [options] { return RunAxes(*options); }; });
}

/** Adds `show`. */
void AddShow(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("show", "Tell what a system is");
    command->add_option("SYSTEM", choice->showSystem, "catalogue entry, zone or description file")
        ->required()
        ->type_name("");
    command->add_option("--as", choice->showFormat, ShowFormatsText())->type_name("FORMAT");
    command->callback(
        [choice] { choice->command = [choice] { return RunShow(choice->showSystem, choice->showFormat); }; });
}

/** Adds `list`. */
void AddList(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("list", "List the catalogue and the zones");
    command->add_option("PATTERN", choice->listPattern, "part of a name or title, or a pattern with * and ?")
        ->type_name("");
    command->callback([choice] { choice->command = [choice] { return RunList(choice->listPattern); }; });
}

/** Adds `units`. */
void AddUnits(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("units", "Convert a length or an angle");
    TUnitsOptions* const options = &choice->units;
    command->add_option("VALUE", options->value, "text in the first unit")->required()->type_name("");
    command->add_option("--from", options->from, "unit of the value")->required()->type_name("UNIT");
    command->add_option("--to", options->to, "unit of the result")->required()->type_name("UNIT");
    AddPrecision(command, "-p,--precision", &options->precision, "decimals; default: those of the unit");
    command->add_option("--axis", options->axis, "latitude or longitude, for hemisphere letters")
        ->type_name("AXIS");
    command->callback([choice, options] { choice->command = [options] { return RunUnits(*options); }; });
}

/** Adds `help`. */
void AddHelp(CLI::App* app, TChoice* choice) {
    CLI::App* const command = app->add_subcommand("help", "Explain a topic: " + HelpTopicNames());
    command->add_option("TOPIC", choice->topic, "topic; without it the list of topics")->type_name("");
    command->callback([choice] { choice->command = [choice] { return RunHelp(choice->topic); }; });
}

/** Runs the chosen command; every failure becomes one line. */
int RunChoice(TChoice const& choice) {
    try {
        if (choice.language != "en") {
            try {
                VellariHostKit::TResourceStore::Process().SetLanguage(choice.language);
            } catch (std::runtime_error const& failure) {
                throw TToolError("--language " + choice.language + ": " + failure.what());
            }
        }
        return choice.command();
    } catch (TOutputClosed const&) {
        return esDone;
    } catch (std::bad_alloc const&) {
        PrintMessage("not enough memory");
    } catch (std::exception const& failure) {
        PrintMessage(failure.what());
    }
    return esError;
}

/** Tells what is wrong with the command line, or prints the help or version that it asks for. */
int FinishParsing(CLI::App const& app, CLI::ParseError const& outcome) {
    std::ostringstream text;
    std::ostringstream ignored;
    if (app.exit(outcome, text, ignored) == 0) {
        try {
            PrintText(text.str());
        } catch (TOutputClosed const&) {
            return esDone;
        } catch (TToolError const& failure) {
            PrintMessage(failure.what());
            return esError;
        }
        return esDone;
    }
    std::string mistake = outcome.what();
    if (app.get_subcommands().empty() && dynamic_cast<CLI::RequiredError const*>(&outcome)) {
        std::vector<std::string> const words = app.remaining();
        mistake = words.empty()
                      ? "a command is needed: transform, gost, show, list, compare, axes, area, units or help"
                      : Quoted(words.front()) + " is not a command";
    }
    PrintMessage(mistake + "; `vellari --help` shows the commands");
    return esError;
}

} // namespace

int Run(int count, char const* const* arguments) {
    TChoice choice;
    CLI::App app("Coordinates from one reference system to another", "vellari");
    app.require_subcommand(1);
    app.set_version_flag("--version", "vellari " VELLARI_VERSION);
    app.add_option("--language", choice.language, "language of the library's texts: en or ru")
        ->type_name("LANGUAGE");
    app.footer("`vellari help TOPIC` explains: " + HelpTopicNames());
    AddTransform(&app, &choice);
    AddGost(&app, &choice);
    AddShow(&app, &choice);
    AddList(&app, &choice);
    AddCompare(&app, &choice);
    AddAxes(&app, &choice);
    AddArea(&app, &choice);
    AddUnits(&app, &choice);
    AddHelp(&app, &choice);
    try {
        app.parse(count, arguments);
    } catch (CLI::ParseError const& outcome) {
        return FinishParsing(app, outcome);
    }
    return RunChoice(choice);
}

} // namespace VellariTool
