#include "net/update_list.h"

#include <cstdint>
#include <fstream>
#include <iterator>

#include "base/list_directed.h"

namespace orvane {
namespace {

// A list names a few thousand releases; a larger body is not a list and is not read whole.
constexpr std::size_t kListLimit = 4 * 1024 * 1024;

}  // namespace

std::string ReadLastListLine(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string body;
    body.resize(kListLimit);
    in.read(body.data(), static_cast<std::streamsize>(body.size()));
    body.resize(static_cast<std::size_t>(in.gcount()));

    std::string field(kUpdateNameWidth, ' ');
    ListReader reader(body, ListOptions{.repeatCounts = false});
    while (!reader.atEnd()) {
        reader.read(ListTarget::text(field, kUpdateNameWidth));
        reader.nextRecord();
    }
    return field;
}

long ReleaseDate(const std::string& updateName) {
    std::int32_t date = 0;
    ListReader reader(std::string_view(updateName).substr(0, 8));
    if (listFailed(reader.read(ListTarget::integer(date)))) return 0;
    return date;
}

}  // namespace orvane
