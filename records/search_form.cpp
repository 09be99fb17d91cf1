#include "records/search_form.h"

namespace orvane {

const std::array<std::string_view, kSearchFieldCount> kSearchFields = {
    "comet",  "name",       "des",     "olddes",  "htype",       "E_year",      "E_month",
    "E_day",  "hyear",      "hmonth",  "hday",    "q",           "e",           "P",
    "w",      "Om",         "i",       "A1",      "A2",          "A3",          "Astyle",
    "NGE_DT", "DFoto",      "Obs",     "F_year",  "F_month",     "F_day",       "L_year",
    "L_month", "L_day",     "hsystem", "hPlan",   "SBP",         "b_perturber", "f_perturber",
    "RMS",    "hreference", "Producer", "Diameter", "ARatio",    "RotP",        "Albedo",
    "M1",     "K1",         "M2",      "K2",      "htimeStamp",  "hinfo",       "M_calc",
    "n_calc", "a_calc",     "Q_calc",  "class_calc", "P_calc",
};

const std::array<std::string_view, kOutputColumnCount> kOutputColumns = {
    "comet",  "name",       "des",     "olddes",  "htype",       "E_year",      "E_month",
    "E_day",  "hyear",      "hmonth",  "hday",    "q",           "e",           "P",
    "w",      "Om",         "i",       "A1",      "A2",          "A3",          "Astyle",
    "NGE_DT", "DFoto",      "Obs",     "F_year",  "F_month",     "F_day",       "L_year",
    "L_month", "L_day",     "hsystem", "hPlan",   "SBP",         "b_perturber", "f_perturber",
    "RMS",    "hreference", "Producer", "Diameter", "ARatio",    "RotP",        "Albedo",
    "M1",     "K1",         "M2",      "K2",      "htimeStamp",  "M_calc",      "n_calc",
    "a_calc", "Q_calc",     "class_calc", "P_calc",
};

}  // namespace orvane
