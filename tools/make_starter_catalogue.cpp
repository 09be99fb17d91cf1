// make_starter_catalogue <CometEls.txt> <out.els>: writes the starter catalogue of
// well-known comets from the Minor Planet Center's one-line elements. The comets and
// the reason for each are the table in tools/starter_catalogue.h.
#include <cstdio>
#include <string_view>

#include "tools/starter_catalogue.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_starter_catalogue <CometEls.txt> <out.els>\n");
        return 2;
    }
    const orvane::starter::StarterResult result = orvane::starter::makeStarterCatalogue(argv[1], argv[2]);
    for (const std::string& note : result.notes) std::fprintf(stderr, "note: %s\n", note.c_str());
    if (!result.ok) {
        std::fprintf(stderr, "make_starter_catalogue: %s\n", result.message.c_str());
        return 1;
    }
    std::printf("wrote %zu comets to %s\n", result.written, argv[2]);
    return 0;
}
