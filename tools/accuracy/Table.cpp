#include "tools/accuracy/Table.h"

#include <cmath>

namespace VellariAccuracy {

void Enlarge(double* greatest, double difference) {
    if (!(difference <= *greatest)) {
        *greatest = std::isfinite(*greatest) ? difference : *greatest;
    }
}

} // namespace VellariAccuracy
