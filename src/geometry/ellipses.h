// Distances on ellipses.
#ifndef KL_SRC_GEOMETRY_ELLIPSES_H
#define KL_SRC_GEOMETRY_ELLIPSES_H

// Nearest point of the ellipse with semi-axes a >= b > 0, and how far it is: negative inside. False for other axes, and
// for what is not finite. On the segment between the centres of curvature, where two points are equally near, the one
// with y > 0.
bool nearest_on_ellipse(double a, double b, double x, double y, double foot[2], double *distance);

// Length from one eccentric angle to another, rad; negative when the second one is smaller. NaN for what
// nearest_on_ellipse refuses.
double arc_of_ellipse(double a, double b, double beta1, double beta2);

#endif
