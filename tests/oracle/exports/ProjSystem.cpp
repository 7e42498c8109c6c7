#include "tests/oracle/exports/ProjSystem.h"

#include "tests/oracle/Places.h"

#include <stdexcept>

namespace OracleTests {

namespace {

void Collect(PROJ_STRING_LIST list, std::vector<std::string>* lines) {
    for (PROJ_STRING_LIST at = list; at && *at; ++at) {
        lines->emplace_back(*at);
    }
    proj_string_list_destroy(list);
}

std::string NameOf(PJ* object) {
    char const* const name = object ? proj_get_name(object) : nullptr;
    return name ? name : "";
}

/** PROJ says on the log why it can't read a text. */
void KeepLogged(void* lines, int, char const* line) {
    static_cast<std::vector<std::string>*>(lines)->emplace_back(line);
}

} // namespace

TProjSystem::TProjSystem(std::string const& wkt) : Context(proj_context_create()) {
    proj_log_func(Context.get(), &Said, KeepLogged);
    PROJ_STRING_LIST warnings = nullptr;
    PROJ_STRING_LIST errors = nullptr;
    Whole.reset(proj_create_from_wkt(Context.get(), wkt.c_str(), nullptr, &warnings, &errors));
    Collect(errors, &Said);
    Collect(warnings, &Said);
    proj_log_func(Context.get(), nullptr, [](void*, int, char const*) {});
    if (!Whole) {
        return;
    }
    Plain.reset(proj_get_type(Whole.get()) == PJ_TYPE_BOUND_CRS
                    ? proj_get_source_crs(Context.get(), Whole.get())
                    : proj_clone(Context.get(), Whole.get()));
    Geographic.reset(proj_crs_get_geodetic_crs(Context.get(), Plain.get()));
}

bool TProjSystem::HasShift() const {
    if (proj_get_type(Whole.get()) != PJ_TYPE_COMPOUND_CRS) {
        return proj_get_type(Whole.get()) == PJ_TYPE_BOUND_CRS;
    }
    TObject const horizontal(proj_crs_get_sub_crs(Context.get(), Whole.get(), 0));
    return proj_get_type(horizontal.get()) == PJ_TYPE_BOUND_CRS;
}

PJ_TYPE TProjSystem::Type() const {
    return Plain ? proj_get_type(Plain.get()) : PJ_TYPE_UNKNOWN;
}

std::string TProjSystem::Name() const {
    return NameOf(Plain.get());
}

std::string TProjSystem::GeographicName() const {
    return NameOf(Geographic.get());
}

std::string TProjSystem::VerticalCode() const {
    TObject const vertical(proj_crs_get_sub_crs(Context.get(), Whole.get(), 1));
    char const* const code = vertical ? proj_get_id_code(vertical.get(), 0) : nullptr;
    return code ? code : "";
}

bool TProjSystem::IsNorthFirst() const {
    return IsNorthFirst(Plain);
}

TProjSystem::TAxis TProjSystem::AxisOf(TObject const& system, int index) const {
    TObject const axes(proj_crs_get_coordinate_system(Context.get(), system.get()));
    char const* direction = nullptr;
    TAxis axis;
    if (axes && proj_cs_get_axis_info(Context.get(), axes.get(), index, nullptr, nullptr, &direction,
                                      &axis.Unit, nullptr, nullptr, nullptr) != 0) {
        axis.Direction = direction;
    }
    return axis;
}

bool TProjSystem::IsNorthFirst(TObject const& system) const {
    // Around the south pole all axes point to the north.
    return AxisOf(system, 0).Direction == "north" && AxisOf(system, 1).Direction != "north";
}

TTriple TProjSystem::FromGeographic(TTriple const& place) const {
    if (!Projecting) {
        Projecting = Between(Geographic.get(), Plain.get());
    }
    double const unit = Degree / AxisOf(Geographic, 0).Unit;
    TTriple const latitudeFirst = {place[0] * unit, place[1] * unit, place[2]};
    return Run(Projecting, IsNorthFirst(Geographic)
                               ? latitudeFirst
                               : TTriple{latitudeFirst[1], latitudeFirst[0], latitudeFirst[2]});
}

TTriple TProjSystem::ToWgs84(TTriple const& own) const {
    if (!Shifting) {
        TObject const wgs84(proj_create(Context.get(), "EPSG:4979"));
        Shifting = Between(Whole.get(), wgs84.get());
    }
    return Run(Shifting, own);
}

TProjSystem::TObject TProjSystem::Between(PJ* source, PJ* target) const {
    TObject operation(proj_create_crs_to_crs_from_pj(Context.get(), source, target, nullptr, nullptr));
    if (!operation) {
        throw std::runtime_error(NameOf(source) + " to " + NameOf(target) + ": no operation");
    }
    return operation;
}

TTriple TProjSystem::Run(TObject const& operation, TTriple const& point) const {
    proj_errno_reset(operation.get());
    PJ_COORD const result = proj_trans(operation.get(), PJ_FWD, proj_coord(point[0], point[1], point[2], 0));
    int const error = proj_errno(operation.get());
    if (error != 0) {
        throw std::runtime_error(proj_context_errno_string(Context.get(), error));
    }
    return {result.xyz.x, result.xyz.y, result.xyz.z};
}

} // namespace OracleTests
