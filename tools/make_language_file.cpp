// Writes a language file with every English default text: the template from which a
// translation starts, and the Languages/English.lng that the program ships.
//   make_language_file OUTPUT.lng
// Every value stands in double quotes, which the reader strips, so texts that begin
// or end with blanks or quotes come back exactly.
#include <cstdio>
#include <fstream>
#include <string>

#include "language/default_texts.h"
#include "language/sections.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_language_file OUTPUT.lng\n");
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    if (!out) {
        std::fprintf(stderr, "make_language_file: cannot write %s\n", argv[1]);
        return 1;
    }
    out << "; Orvane - Comet Ephemeris Desk: English texts of the user interface (UTF-8).\r\n"
        << "; Copy this file under the name of your language and translate the values.\r\n";
    for (const orvane::Section section : orvane::kAllSections) {
        out << "\r\n[" << orvane::sectionName(section) << "]\r\n";
        for (int key = 1; key <= orvane::keyCount(section); ++key)
            out << key << "=\"" << orvane::defaultText(section, key) << "\"\r\n";
    }
    return out ? 0 : 1;
}
