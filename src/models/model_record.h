// The record of a model id: selections, constants and the entry points of the chosen routines. Types only: the floors
// above the record fill it, the floors between reach each other through it.
#ifndef KL_SRC_MODELS_MODEL_RECORD_H
#define KL_SRC_MODELS_MODEL_RECORD_H

#include "kl_family.h"

// Geocentric Sun, mean of date.
using SunRoutine = long (*)(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb, Cord *sun,
                            kl_error_record *error);
// Earth: barycentric and heliocentric state, J2000.
using EarthRoutine = long (*)(const kl_time_record *tdb, Cord *barycentric, Cord *heliocentric, kl_error_record *error);
// Geocentric Moon, mean of date.
using MoonRoutine = long (*)(const kl_time_record *tdb, Cord *moon, kl_error_record *error);
// Heliocentric planet, J2000.
using PlanetRoutine = long (*)(long planet, const kl_time_record *tdb, Cord *state, kl_error_record *error);

// Nutation at days since 2000-01-01 00:00.
using NutationRoutine = void (*)(double days, kl_nutation *nutation);
// Precession from J2000 to the mean of date.
using PrecessionRoutine = void (*)(double days, kl_precession *angles);

// Place of a star, as KL_Star_place.
using StarRoutine = long (*)(const kl_star *star, const double observer_barycentric[3],
                             const double observer_velocity[3], const double observer_heliocentric[3], double tdb,
                             long corrections, double place[3]);

struct EarthModel {
    long value;
    double gravity_radius; // m
    double gm;             // m3/s2
    double j2, j3, j4;
    double semi_major_axis, semi_minor_axis; // m
    double eccentricity, flattening;
    double angle[3];     // Greenwich sidereal angle: deg, deg/day, deg/day2
    double angle_sim[3]; // the rounded second set
    long reserved;       // 0
    long n_geoid_coefficients;
    const double *HC, *HS, *CC, *CS;
};
struct SunModel {
    long value;
    SunRoutine sun;
    EarthRoutine earth;
};
struct MoonModel {
    long value;
    MoonRoutine moon;
};
struct PlanetModel {
    long value;
    PlanetRoutine planets;
};
struct StarModel {
    long value;
    StarRoutine star;
};
struct NutationModel {
    long value;
    NutationRoutine nutation;
};
struct PrecessionModel {
    long value;
    PrecessionRoutine precession;
};
struct ConstantsModel {
    long value;
    double astronomical_unit; // km
};
struct LightModel {
    long value;
};

// What a function needs of a model id. A refused selection leaves the blocks from the refused one on zero.
struct ModelBlocks {
    EarthModel earth;
    SunModel sun;
    MoonModel moon;
    PlanetModel planet;
    StarModel star;
    NutationModel nutation;
    PrecessionModel precession;
    ConstantsModel constants;
    LightModel light;
};

struct ModelIdRecord {
    kl_id_record head;
    long selections[9];
    ModelBlocks blocks;
};

// The blocks of a default model: every routine by its name. Wired above all floors that it knows (src/wiring).
extern const ModelBlocks KL_DEFAULT_BLOCKS;

// Where they lie, for the floors below the wiring.
extern const ModelBlocks *const KL_ORDINARY_BLOCKS;

// The record of an initialised id, else null.
inline ModelIdRecord *model_record_of(const kl_model_id *model_id)
{
    if (model_id == nullptr || model_id->record == nullptr)
        return nullptr;
    auto *record = static_cast<ModelIdRecord *>(model_id->record);
    return record->head.init_status == 1 ? record : nullptr;
}

// The blocks of an initialised id; of an uninitialised one (or NULL) the default blocks, which are constant: a default
// model for one call costs nothing.
inline const ModelBlocks &model_blocks(const kl_model_id *model_id)
{
    const ModelIdRecord *record = model_record_of(model_id);
    return record != nullptr ? record->blocks : *KL_ORDINARY_BLOCKS;
}

#endif
