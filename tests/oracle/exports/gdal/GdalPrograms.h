#pragma once

#include <filesystem>
#include <string>

/** GDAL through its programs. */
namespace OracleTests {

/** A folder that goes with its object. */
class TScratchFolder {
public:
    /** @throws std::runtime_error when it can't be made. */
    TScratchFolder();
    ~TScratchFolder();
    TScratchFolder(TScratchFolder const&) = delete;
    TScratchFolder& operator=(TScratchFolder const&) = delete;

    /** A name in the folder. */
    std::string File(std::string const& name) const { return (Path / name).string(); }

private:
    std::filesystem::path Path;
};

/**
 * The MapInfo clause that GDAL writes, without its first word.
 * @param definition "EPSG:27700", or another text that GDAL takes. @throws std::runtime_error when it doesn't.
 */
std::string GdalsMapInfo(std::string const& definition);

/** WKT of 2001 of a system, as GDAL writes it. @param definition as above, or the name of a file with a system. */
std::string GdalsWkt(std::string const& definition);

/** The WKT that GDAL makes of a MapInfo clause. */
std::string GdalsWktOfMapInfo(std::string const& clause);

/** Writes a GeoTIFF of one pixel. */
void GdalCreatesGeoTiff(std::string const& file, std::string const& definition);

/** WKT without the register's code of the whole system: what GDAL can't write as a code alone. */
std::string WithoutCode(std::string const& wkt);

} // namespace OracleTests
