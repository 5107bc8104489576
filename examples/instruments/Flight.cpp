// Integrated in small steps from a list of orders, the way an autopilot would fly them.
#include "Flight.h"

#include <algorithm>
#include <cmath>

namespace Instruments {

namespace {

constexpr double stepS = 0.1;
constexpr double courseDeg = 70.0;
constexpr double degreesPerDot = 2.5;
constexpr double metresPerMile = 1852.0;
constexpr double metresPerSecondOfKnot = metresPerMile / 3600.0;
constexpr double gravity = 9.81;
constexpr double feetPerMetre = 3.28084;
constexpr double trackCourse = -1.0;

struct Order {
    double fromS;
    double headingDeg;  // or trackCourse
    double altitudeFt;
    double speedKt;
};

constexpr Order orders[] = {
    {0, 20, 3000, 118},           {14, 20, 4500, 118},           {48, 110, 4500, 118},
    {96, trackCourse, 4500, 132}, {190, trackCourse, 3600, 140}, {245, 350, 3600, 126},
};

const Order& orderAt(double seconds) {
    const Order* current = orders;
    for (const Order& order : orders) {
        if (order.fromS <= seconds) {
            current = &order;
        }
    }
    return *current;
}

double turn(double from, double to) {
    return std::remainder(to - from, 360.0);
}

double wrap360(double degrees) {
    return degrees - 360.0 * std::floor(degrees / 360.0);
}

double approach(double value, double target, double most) {
    return value + std::clamp(target - value, -most, most);
}

// Metres to the right of the course line through the station.
double rightOfCourse(const FlightState& state) {
    return state.eastM * std::cos(courseDeg * radian) - state.northM * std::sin(courseDeg * radian);
}

// Cuts the course at up to 45 degrees, the less the nearer it is.
double interceptHeading(const FlightState& state) {
    const double miles = rightOfCourse(state) / metresPerMile;
    return wrap360(courseDeg - std::clamp(miles * 60.0, -45.0, 45.0));
}

void select(FlightState& state, double seconds) {
    const Order& order = orderAt(seconds);
    state.selectedHeadingDeg =
        order.headingDeg == trackCourse ? interceptHeading(state) : order.headingDeg;
    state.selectedAltitudeFt = order.altitudeFt;
    state.selectedSpeedKt = order.speedKt;
}

void steer(FlightState& state) {
    const double error = turn(state.headingDeg, state.selectedHeadingDeg);
    state.bankDeg = approach(state.bankDeg, std::clamp(error * 1.2, -25.0, 25.0), 6.0 * stepS);
    const double speed = state.speedKt * metresPerSecondOfKnot;
    const double rate = gravity * std::tan(state.bankDeg * radian) / speed / radian;
    state.headingDeg = wrap360(state.headingDeg + rate * stepS);
}

void climb(FlightState& state) {
    const double wanted =
        std::clamp((state.selectedAltitudeFt - state.altitudeFt) * 5.0, -850.0, 1000.0);
    state.climbFpm = approach(state.climbFpm, wanted, 220.0 * stepS);
    state.altitudeFt += state.climbFpm / 60.0 * stepS;
}

void advance(FlightState& state) {
    const double before = state.speedKt;
    state.speedKt = approach(before, state.selectedSpeedKt, 1.1 * stepS);
    state.accelerationKt = (state.speedKt - before) / stepS;
    const double metres = state.speedKt * metresPerSecondOfKnot * stepS;
    state.eastM += metres * std::sin(state.headingDeg * radian);
    state.northM += metres * std::cos(state.headingDeg * radian);
}

// The nose stands above the path by the angle of attack, which grows in turns; the air is not calm.
void setAttitude(FlightState& state, double seconds) {
    const double path =
        std::atan2(state.climbFpm / 60.0 / feetPerMetre, state.speedKt * metresPerSecondOfKnot) /
        radian;
    const double attack =
        2.5 * 14000.0 / (state.speedKt * state.speedKt) / std::cos(state.bankDeg * radian);
    state.pitchDeg = path + attack + 0.25 * std::sin(seconds * 1.7);
    state.slip = 0.12 * std::sin(seconds * 0.9) + 0.08 * std::sin(seconds * 2.3);
}

FlightState between(const FlightState& a, const FlightState& b, double share) {
    FlightState state = a;
    const auto mix = [&](double FlightState::*field) {
        state.*field += (b.*field - a.*field) * share;
    };
    for (double FlightState::*field :
         {&FlightState::eastM, &FlightState::northM, &FlightState::pitchDeg, &FlightState::bankDeg,
          &FlightState::slip, &FlightState::speedKt, &FlightState::altitudeFt,
          &FlightState::climbFpm}) {
        mix(field);
    }
    state.headingDeg = wrap360(a.headingDeg + turn(a.headingDeg, b.headingDeg) * share);
    return state;
}

}  // namespace

Guidance guidanceAt(const FlightState& state) {
    const double bearing = wrap360(std::atan2(-state.eastM, -state.northM) / radian);
    const double along = turn(courseDeg, bearing);
    const bool to = std::abs(along) < 90.0;
    const double off = to ? along : -turn(courseDeg, wrap360(bearing + 180.0));
    return {courseDeg, bearing, std::hypot(state.eastM, state.northM) / metresPerMile,
            std::clamp(off / degreesPerDot, -2.4, 2.4), to};
}

Flight::Flight() {
    FlightState state{.eastM = -11500.0,
                      .northM = -7200.0,
                      .headingDeg = 20.0,
                      .speedKt = 118.0,
                      .altitudeFt = 3000.0};
    for (double seconds = 0.0; seconds <= lengthS + stepS; seconds += stepS) {
        select(state, seconds);
        steer(state);
        climb(state);
        advance(state);
        setAttitude(state, seconds);
        mStates.push_back(state);
    }
}

FlightState Flight::at(double seconds) const {
    const double steps = (seconds - lengthS * std::floor(seconds / lengthS)) / stepS;
    const auto index = std::min(static_cast<std::size_t>(steps), mStates.size() - 2);
    return between(mStates[index], mStates[index + 1], steps - static_cast<double>(index));
}

}  // namespace Instruments
