// The angle of a satellite on its orbit, counted from the ascending node; and where the Sun stands seen from the orbit.
// Radians, metres, seconds; true equator of date unless said.
#ifndef KL_SRC_ORBITS_ORBIT_ANGLE_H
#define KL_SRC_ORBITS_ORBIT_ANGLE_H

// Plane of a state. False from `orbit_plane` where position and velocity span none.
struct OrbitPlane {
    double w;       // angular momentum a unit mass, m2/s
    double pole[3]; // its direction
    double node[3]; // direction of the ascending node; the first axis where the plane is that of the equator
    double node_angle, inclination;
    bool equatorial;
};
bool orbit_plane(const double pos[3], const double vel[3], OrbitPlane *plane);

struct OrbitAngle {
    double angle, rate, rate_of_rate; // rad, rad/s, rad/s2
    double node_rate;                 // rad/s
};

// `acc` is that of the state; null: of two bodies, which leaves the plane at rest.
OrbitAngle angle_on_orbit(const OrbitPlane &plane, const double pos[3], const double vel[3], const double acc[3]);

struct SunFromOrbit {
    double beta;  // of the Sun above the plane
    double ahead; // from the Sun's projection to the satellite in the direction of motion
};
SunFromOrbit sun_from_orbit(const OrbitPlane &plane, const double pos[3], const double sun[3]);

#endif
