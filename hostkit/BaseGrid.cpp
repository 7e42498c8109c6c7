#include "frame/imported/BaseGrid.h"

TBaseGrid::~TBaseGrid() = default;
