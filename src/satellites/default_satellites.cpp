// Default satellites: ten slots that a caller fills from a satellite configuration file.
#include "errors/activation.h"
#include "errors/siblings.h"
#include "ids/id_record.h"
#include "satellites/satellites.h"

namespace {

// Guards the reservation of slots, nothing else.
pthread_mutex_t slot_mutex = PTHREAD_MUTEX_INITIALIZER;

char slot_sp3[KL_N_DEFAULT_SATELLITES][4];

void set_in_use(long slot, long in_use)
{
    __atomic_store_n(&kl_default_sat_array[slot], in_use, __ATOMIC_RELEASE);
}

long lowest_free_slot()
{
    long slot = 0;
    while (slot < KL_N_DEFAULT_SATELLITES && slot_in_use(slot))
        ++slot;
    return slot;
}

void set_envelope(long row, const kd_sat_init &data)
{
    write_cell(&A_MIN[row], data.a_min);
    write_cell(&A_NOM[row], data.a_nom);
    write_cell(&A_MAX[row], data.a_max);
    write_cell(&I_MIN[row], data.i_min);
    write_cell(&I_NOM[row], data.i_nom);
    write_cell(&I_MAX[row], data.i_max);
    write_cell(&E_NOM[row], data.e_nom);
    write_cell(&W_NOM[row], data.w_nom);
}

// Name, SP3 identifier and envelope; limits and catalogue data stay.
void clear_row(long slot)
{
    std::memset(kl_default_sat_names[slot], 0, sizeof kl_default_sat_names[slot]);
    std::memset(slot_sp3[slot], 0, sizeof slot_sp3[slot]);
    std::memset(KL_SP3_PARAMS[slot], 0, sizeof KL_SP3_PARAMS[slot]);
    set_envelope(slot, kd_sat_init{});
}

void fill_row(long slot, const kd_sat_init &data)
{
    std::memcpy(kl_default_sat_names[slot], data.name, sizeof data.name);
    std::memcpy(slot_sp3[slot], data.sp3_id, sizeof data.sp3_id);
    put_text(KL_SP3_PARAMS[slot], slot_sp3[slot]);
    kl_tle_sat_data &catalogue = TLE_SAT_DATA[slot];
    catalogue.catalogue_number = data.catalogue_number;
    std::memcpy(catalogue.name, data.catalogue_name, sizeof catalogue.name);
    std::memcpy(catalogue.designator, data.designator, sizeof catalogue.designator);
    KL_TOLERANCE_AMIN_L[slot] = data.tolerance_l.a_min;
    KL_TOLERANCE_AMAX_L[slot] = data.tolerance_l.a_max;
    KL_TOLERANCE_EMIN_L[slot] = data.tolerance_l.e_min;
    KL_TOLERANCE_EMAX_L[slot] = data.tolerance_l.e_max;
    KL_TOLERANCE_IMIN_L[slot] = data.tolerance_l.i_min;
    KL_TOLERANCE_IMAX_L[slot] = data.tolerance_l.i_max;
    KL_TOLERANCE_AMIN_T[slot] = data.tolerance_t.a_min;
    KL_TOLERANCE_AMAX_T[slot] = data.tolerance_t.a_max;
    KL_TOLERANCE_EMIN_T[slot] = data.tolerance_t.e_min;
    KL_TOLERANCE_EMAX_T[slot] = data.tolerance_t.e_max;
    KL_TOLERANCE_IMIN_T[slot] = data.tolerance_t.i_min;
    KL_TOLERANCE_IMAX_T[slot] = data.tolerance_t.i_max;
    set_envelope(slot, data);
}

} // namespace

char kl_default_sat_names[KL_N_DEFAULT_SATELLITES][30];
long kl_default_sat_array[KL_N_DEFAULT_SATELLITES];

long kl_default_sat_init(long *sat_id, const char *file_name, long *ierr)
{
    Activation call(KL_FN_DEFAULT_SAT_INIT, ierr);
    if (sat_id == nullptr)
        return KL_ERR;
    if (file_name == nullptr)
        return call.fails(KL_DEFAULT_SAT_INIT_FILE_ERR);

    if (pthread_mutex_lock(&slot_mutex) != 0)
        return call.fails(KL_DEFAULT_SAT_INIT_LOCK_ERR);
    const long slot = lowest_free_slot();
    const bool found = slot < KL_N_DEFAULT_SATELLITES;
    if (found) {
        *sat_id = slot;
        set_in_use(slot, 1);
    }
    // On purpose: a lock that cannot be released prints its line and records no condition; the slot stays in use.
    if (pthread_mutex_unlock(&slot_mutex) != 0) {
        put_closing_threads();
        return KL_ERR;
    }
    if (!found)
        return call.fails(KL_DEFAULT_SAT_INIT_NO_SLOT_ERR);

    if (*file_name == '\0') {
        clear_row(slot);
        return call.status();
    }
    kd_sat_init data;
    // On purpose: the slot stays in use, with the id returned and the row as it was, when its file cannot be read.
    if (KD_Read_sat_init_file(file_name, &data) != 0)
        return call.fails(KL_DEFAULT_SAT_INIT_FILE_ERR);
    fill_row(slot, data);
    return call.status();
}

long kl_default_sat_close(const long *sat_id)
{
    const long slot = KL_Default_to_array(sat_id);
    if (slot < 0)
        return -1;
    clear_row(slot);
    kl_tle_sat_data &catalogue = TLE_SAT_DATA[slot];
    catalogue.catalogue_number = 0;
    catalogue.name[0] = '\0';
    catalogue.designator[0] = '\0';
    set_in_use(slot, 0);
    return slot;
}
