#include <SYS_Resources.h>

#include <SCL_Vector.h>

#include <algorithm>

namespace kel_ns {

namespace {

struct Table {
    const SYS_Resource* rows;
    int count;
};

// Never destroyed: texts may be asked for while statics are torn down.
SCL_Vector<Table>& tables() {
    static auto* all = new SCL_Vector<Table>;
    return *all;
}

} // namespace

void SYS_RegisterResources(const SYS_Resource* rows, int count) {
    if (!rows || count <= 0)
        return;
    auto& all = tables();
    if (std::none_of(all.begin(), all.end(), [&](const Table& t) { return t.rows == rows; }))
        all.push_back({rows, count});
}

SYS_String TR(int id) {
    const auto& all = tables();
    for (auto table = all.rbegin(); table != all.rend(); ++table) {
        const SYS_Resource* end = table->rows + table->count;
        const SYS_Resource* row =
            std::find_if(table->rows, end, [&](const SYS_Resource& r) { return r.id == id; });
        if (row != end)
            return row->text;
    }
    return SYS_String();
}

} // namespace kel_ns
