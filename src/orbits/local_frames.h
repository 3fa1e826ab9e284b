// Frames that go along with a satellite.
#ifndef KL_SRC_ORBITS_LOCAL_FRAMES_H
#define KL_SRC_ORBITS_LOCAL_FRAMES_H

// Rows of r: the axes in the frame of the state; dr: their derivatives, 1/s. `kind` as KL_ORBITAL_QSW and the others.
// False where position and velocity span no plane.
bool local_orbital_frame(long kind, const double pos[3], const double vel[3], const double acc[3], double r[9],
                         double dr[9]);

#endif
