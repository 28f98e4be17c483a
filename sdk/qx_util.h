// Small pure services of the flat layer: wildcard matching and plane geometry.
#pragma once

// RTNORM when text matches the wildcard pattern, RTERROR otherwise or for null
// arguments. Case-sensitive. Pattern characters:
//   #  a digit             @  a letter           .  neither letter nor digit
//   *  any run of characters, also none          ?  any one character
//   [abc] [a-z]  one of the listed characters    [~abc]  any one character but those
//   `x  the character x itself                   ,  separates alternatives
//   ~  at the start of an alternative: matches whatever the rest does not match
int qxutWcMatch(const wchar_t* text, const wchar_t* pattern);

// Distance between two 3D points.
double qxutDistance(const double* first, const double* second);
// Angle in radians, in [0, 2*pi), from first to second projected on the X-Y plane.
double qxutAngle(const double* first, const double* second);
// result = base moved by distance along angle in the X-Y plane; z is kept from base.
// result may be the same array as base.
void qxutPolar(const double* base, double angle, double distance, double* result);
