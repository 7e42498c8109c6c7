#include "shell/refsystems/public/ReferenceSystemFactory.h"

#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "shell/refsystems/LocalReferenceSystems.h"
#include "shell/refsystems/MapProjectedReferenceSystem.h"
#include "shell/refsystems/TopocentricHorizontalReferenceSystem.h"

namespace KvRefSystem {

TShellReferenceSystem* CreateShellReferenceSystem(std::string text, TKvProgressHandler*) {
    try {
        TStringTree tree;
        tree.ReadFromString(text.c_str(), nullptr, nullptr);
        return CreateShellReferenceSystem(&tree, nullptr);
    } catch (...) {
        return nullptr;
    }
}

TShellReferenceSystem* CreateShellReferenceSystem(TStringTree* tree, TKvProgressHandler* progress) {
    int type = 0;
    if (!tree || !tree->GetInteger(DescriptionTag::Type, 0, &type)) {
        return nullptr;
    }
    switch (type) {
    case rstLocalCartesian:
        return new TShellLocalCartesianReferenceSystem(tree, progress);
    case rstLocalCurved:
        return new TShellLocalCurvedReferenceSystem(tree, progress);
    case rstGeocentric:
        return new TShellGeocentricReferenceSystem(tree, progress);
    case rstGeodetic:
        return new TShellGeodeticReferenceSystem(tree, progress);
    case rstMapProjected:
        return new TShellMapProjectedReferenceSystem(tree, progress);
    case rstTopocentricHorizontal:
        return new TShellTopocentricHorizontalReferenceSystem(tree, progress);
    default:
        return nullptr;
    }
}

TShellReferenceSystem* CreateShellReferenceSystem(TKvXIniReader* reader, TKvProgressHandler* progress) {
    if (!reader) {
        return nullptr;
    }
    switch (ReadXmlInt(reader, "RefSystemType", 0)) {
    case rstLocalCartesian:
        return new TShellLocalCartesianReferenceSystem(reader, progress);
    case rstLocalCurved:
        return new TShellLocalCurvedReferenceSystem(reader, progress);
    case rstGeocentric:
        return new TShellGeocentricReferenceSystem(reader, progress);
    case rstGeodetic:
        return new TShellGeodeticReferenceSystem(reader, progress);
    case rstMapProjected:
        return new TShellMapProjectedReferenceSystem(reader, progress);
    case rstTopocentricHorizontal:
        return new TShellTopocentricHorizontalReferenceSystem(reader, progress);
    default:
        return nullptr;
    }
}

} // namespace KvRefSystem
