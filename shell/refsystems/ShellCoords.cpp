#include "shell/refsystems/ShellCoords.h"

#include "frame/NumberText.h"

namespace KvRefSystem {

TShellCoords::TShellCoords(double const& first, double const& second, double const& third)
    : Coord{FormatText("%.16le", first), FormatText("%.16le", second), FormatText("%.16le", third)} {}

} // namespace KvRefSystem
