#include "array_world.h"

const std::vector<ArrayForm> &every_array_form()
{
    static const std::vector<ArrayForm> forms = {
#include "support/every_array.inc"
        {"kl_geoid_calc_n",
         1,
         {{'e', "latitude", "double", "d"}, {'e', "longitude", "double", "d"}, {'g', "undulation", "double", "d"}},
         [](ArrayWorld &w, long i, long *ierr) {
             const double *lat = w.element<double>(0, i), *lon = w.element<double>(1, i);
             const double nowhere = 1e9;
             const kl_geoid_input point = {&w.model, lat != nullptr ? *lat : nowhere, lon != nullptr ? *lon : nowhere,
                                           0.0, *w.selected("max_degree")};
             return kl_geoid_calc(&point, w.element<double>(2, i), ierr);
         },
         [](ArrayWorld &w, const long *n, long *status, long *ierr) {
             return kl_geoid_calc_n(&w.model, n, w.column<double>(0), w.column<double>(1), w.selected("max_degree"),
                                    w.column<double>(2), status, ierr);
         }},
    };
    return forms;
}
