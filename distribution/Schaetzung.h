// Schaetzung: what the counts of primes and prime constellations are read against. The
// logarithmic integral li(x), Riemann's R(x), and the Hardy-Littlewood estimates of the
// constellations: a constant (the twin constant and its kin) times the integral of
// 1/ln(t)^k over the range, k the number of members.
#pragma once

namespace sw {

// li(x) = the principal value of the integral of 1/ln t from 0 to x, for x > 1.
double LogIntegral(double x);
// R(x) = sum over n of mu(n)/n li(x^(1/n)), by Gram's series; for x >= 2.
double RiemannR(double x);
// The integral of 1/ln(t)^k from a to b (a >= 2 taken where a is smaller).
double LogPotenzIntegral(double a, double b, int k);
// The Hardy-Littlewood estimate of the constellations of a kind (TupelArt) with all members
// in [a, b]; for the primes li(b) - li(a).
double TupelSchaetzung(int art, double a, double b);
// The constant in front of the integral of a kind (1 for the primes).
double TupelKonstante(int art);

}  // namespace sw
