#include "analysis/run_exports/netcdf_file.h"

#include <cstdlib>
#include <memory>
#include <netcdf.h>
#include <netcdf_mem.h>

#include "base/opened_library.h"

namespace zaview {
namespace {

// X(member, library call)
#define ZAVIEW_NETCDF_CALLS(X)   \
  X(create, nc_create_mem)       \
  X(def_dim, nc_def_dim)         \
  X(def_var, nc_def_var)         \
  X(put_text, nc_put_att_text)   \
  X(enddef, nc_enddef)           \
  X(put_float, nc_put_var_float) \
  X(close, nc_close_memio)       \
  X(abort, nc_abort)

struct NetcdfCalls {
#define X(member, call) decltype(&call) member = nullptr;
  ZAVIEW_NETCDF_CALLS(X)
#undef X
  bool ready = false;
};

NetcdfCalls Open() {
  NetcdfCalls calls;
  void* library = nullptr;
  for (const char* name : {"libnetcdf.so.19", "libnetcdf.so"})
    if (library == nullptr) library = dlopen(name, RTLD_LAZY | RTLD_LOCAL);
  bool good = library != nullptr;
#define X(member, call) good = good && Load(library, #call, calls.member);
  ZAVIEW_NETCDF_CALLS(X)
#undef X
  calls.ready = good;
  return calls;
}

const NetcdfCalls& TheLibrary() {
  static const NetcdfCalls calls = Open();
  return calls;
}

bool PutText(const NetcdfCalls& nc, int file, int variable, const char* name, const std::string& text) {
  return text.empty() || nc.put_text(file, variable, name, text.size(), text.data()) == NC_NOERR;
}

// The head of the file; ids of the variables.
bool Define(const NetcdfCalls& nc, int file, const NetcdfTable& table, std::vector<int>& ids) {
  int time = 0;
  bool good = nc.def_dim(file, "time", table.rows, &time) == NC_NOERR;
  for (const auto& [name, text] : table.attributes) good = good && PutText(nc, file, NC_GLOBAL, name.c_str(), text);
  for (const NetcdfVariable& variable : table.variables) {
    int id = 0;
    good = good && nc.def_var(file, variable.name.c_str(), NC_FLOAT, 1, &time, &id) == NC_NOERR &&
           PutText(nc, file, id, "long_name", variable.long_name) && PutText(nc, file, id, "units", variable.units);
    ids.push_back(id);
  }
  return good && nc.enddef(file) == NC_NOERR;
}

NetcdfFault PutValues(const NetcdfCalls& nc, int file, const NetcdfTable& table, const std::vector<int>& ids) {
  std::vector<float> values;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (!table.values(i, values) || values.size() != table.rows) return NetcdfFault::no_values;
    if (nc.put_float(file, ids[i], values.data()) != NC_NOERR) return NetcdfFault::failed;
  }
  return NetcdfFault::none;
}

}  // namespace

NetcdfFault EncodeNetcdf(const NetcdfTable& table, std::string& bytes) {
  const NetcdfCalls& nc = TheLibrary();
  bytes.clear();
  if (!nc.ready) return NetcdfFault::no_library;
  const std::size_t likely = (table.rows * sizeof(float) + 512) * table.variables.size() + 65536;
  int file = 0;
  if (nc.create("zaview.nc", NC_64BIT_OFFSET, likely, &file) != NC_NOERR) return NetcdfFault::failed;
  std::vector<int> ids;
  NetcdfFault fault = NetcdfFault::failed;
  try {
    if (Define(nc, file, table, ids)) fault = PutValues(nc, file, table, ids);
  } catch (...) {
    static_cast<void>(nc.abort(file));
    throw;
  }
  if (fault != NetcdfFault::none) {
    static_cast<void>(nc.abort(file));
    return fault;
  }
  NC_memio memory{};
  if (nc.close(file, &memory) != NC_NOERR) return NetcdfFault::failed;
  const std::unique_ptr<void, decltype(&std::free)> owned(memory.memory, &std::free);
  bytes.assign(static_cast<const char*>(memory.memory), memory.size);
  return NetcdfFault::none;
}

}  // namespace zaview
