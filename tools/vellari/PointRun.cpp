#include "tools/vellari/PointRun.h"

#include "tools/vellari/FailureReport.h"
#include "tools/vellari/LineReader.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/PointStream.h"
#include "tools/vellari/ToolError.h"

#include <Vellari/hostkit/HostKit.h>

#include <unistd.h>

#include <memory>

namespace VellariTool {

namespace {

using VellariHostKit::TTerminalProgress;

/** Bytes of input from which on a bar is drawn: shorter ones are done before anybody looks. */
constexpr std::uint64_t longInput = 4 * 1024 * 1024;

/** Lines between two looks at the clock. */
constexpr std::uint64_t linesPerProgress = 4096;

/** The bar of a long input on a terminal; nothing otherwise. */
class TInputProgress {
public:
    explicit TInputProgress(TLineReader const& points) : input(points) {
        if (points.Size() >= longInput && isatty(STDERR_FILENO)) {
            bar = std::make_unique<TTerminalProgress>(stderr, "vellari");
            bar->OnStart(points.Size());
        }
    }

    void Show(std::uint64_t lineNumber) {
        if (bar && lineNumber % linesPerProgress == 0) {
            bar->OnProgress(input.Position());
        }
    }

    /** Takes the bar away, so that a message has the line; it comes back with the next drawing. */
    void Hide() {
        if (bar) {
            bar->OnStop();
        }
    }

private:
    TLineReader const& input;
    std::unique_ptr<TTerminalProgress> bar;
};

/** One run over the points. */
class TPointRun {
public:
    TPointRun(TPointRunOptions const& chosen, TPointMove* pointMove, std::array<TAxisText, 3> const& source,
              std::array<TAxisText, 3> const& target)
        : options(chosen),
          move(pointMove),
          reader(source),
          writer(target),
          input(chosen.points),
          output(chosen.output),
          report(input.Name()),
          progress(input) {}

    /** @return the exit status. */
    int Run() {
        TTextLine line;
        bool isStopped = false;
        while (!isStopped && input.Next(&line)) {
            ++lineNumber;
            isStopped = !TakeLine(line);
            output.FlushWhenFull();
            progress.Show(lineNumber);
        }
        progress.Hide();
        report.Finish(points);
        if (isStopped) {
            PrintMessage("stopped at the first line that could not be transformed" +
                         std::string(IsToFile() ? "; " + options.output + " is left as it was" : ""));
            if (!IsToFile()) {
                output.Commit();
            }
            return esSomeFailed;
        }
        output.Commit();
        return report.Count() == 0 ? esDone : esSomeFailed;
    }

private:
    bool IsToFile() const { return !options.output.empty() && options.output != "-"; }

    /** @return false when no more lines are to be read. */
    bool TakeLine(TTextLine const& line) {
        TPointFields fields;
        TPoint point;
        std::string& text = output.Text();
        TLineKind const kind = line.isTooLong ? lkMistake : reader.Read(line.text, &fields, &point, &reason);
        if (kind == lkBlank) {
            text.append(line.text);
            text += '\n';
            return true;
        }
        if (kind == lkHeader) {
            if (options.header != hmNever) {
                writer.AppendHeader(&text, reader.Separator(), reader.HasHeightColumn(), fields.rest);
            }
            isHeaderDone = true;
            return true;
        }
        if (!isHeaderDone) {
            isHeaderDone = true;
            if (options.header == hmAlways) {
                writer.AppendHeader(&text, reader.Separator(), reader.HasHeightColumn(), "");
            }
        }

        ++points;
        if (line.isTooLong) {
            reason = "the line is longer than 1 MiB";
        }
        bool const withHeight = reader.HasHeightColumn() || fields.count > 2;
        if (kind == lkPoint && move->Transform(&point, &reason)) {
            writer.AppendPoint(&text, reader.Separator(), withHeight, point, fields.rest);
            return true;
        }
        progress.Hide();
        report.Add(lineNumber, line.text, reason);
        if (options.onError == oeMark) {
            TPointWriter::AppendMark(&text, reader.Separator(), withHeight, fields.rest);
        }
        return options.onError != oeStop;
    }

    TPointRunOptions const& options;
    TPointMove* move;
    TPointReader reader;
    TPointWriter writer;
    TLineReader input;
    TOutputFile output;
    TFailureReport report;
    TInputProgress progress;
    std::string reason;
    std::uint64_t lineNumber = 0;
    std::uint64_t points = 0;
    bool isHeaderDone = false;
};

} // namespace

int RunPoints(TPointRunOptions const& options, TPointMove* move, std::array<TAxisText, 3> const& source,
              std::array<TAxisText, 3> const& target) {
    return TPointRun(options, move, source, target).Run();
}

} // namespace VellariTool
