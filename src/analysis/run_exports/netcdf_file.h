// A table of columns over time as a NetCDF file: format CDF-2 of Unidata's "NetCDF Classic Format", which every reader
// of NetCDF takes, by the library, which is opened for the first file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zaview {

struct NetcdfVariable {
  std::string name;              // letters, digits, underscores
  std::string long_name, units;  // units blank: no such attribute
};

struct NetcdfTable {
  std::vector<std::pair<std::string, std::string>> attributes;  // global ones: name and text
  std::size_t rows = 0;                                         // the dimension "time" that all variables have
  std::vector<NetcdfVariable> variables;                        // the first is the time itself
  // The values of a variable, `rows` of them; what is not finite stays so. False: they can't be had.
  std::function<bool(std::size_t variable, std::vector<float>& values)> values;
};

enum class NetcdfFault : std::uint8_t { none, no_library, no_values, failed };

// bytes: the whole file.
[[nodiscard]] NetcdfFault EncodeNetcdf(const NetcdfTable& table, std::string& bytes);

}  // namespace zaview
