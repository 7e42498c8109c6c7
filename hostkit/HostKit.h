#pragma once

/**
 * The whole host kit: bodies for everything that the library imports from its host (`frame/imported`), so
 * that it runs stand-alone, and these tools for hosts.
 */

#include "frame/imported/BaseGrid.h"
#include "frame/imported/Geometry.h"
#include "frame/imported/Matrix.h"
#include "frame/imported/ModuleHooks.h"
#include "frame/imported/OptionTable.h"
#include "frame/imported/Progress.h"
#include "frame/imported/SevenParameters.h"
#include "frame/imported/SharedHandle.h"
#include "frame/imported/StringTree.h"
#include "frame/imported/Strings.h"
#include "frame/imported/XIni.h"
#include "hostkit/ProcessHooks.h"
#include "hostkit/ResourceStore.h"
#include "hostkit/TerminalProgress.h"
#include "hostkit/XmlIni.h"
