#pragma once

#include "tools/accuracy/Table.h"

namespace VellariAccuracy {

/** The whole of docs/accuracy.md. @throws what building its systems and reading its data throws. */
TDocument WholeDocument();

} // namespace VellariAccuracy
