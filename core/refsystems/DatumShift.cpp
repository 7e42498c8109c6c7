#include "core/refsystems/DatumShift.h"

namespace KvRefSystem {

TDatumShift::TDatumShift(TDatumShiftType type) : Type(type) {}

TDatumShift::~TDatumShift() = default;

} // namespace KvRefSystem
