#include "sim/camera/tcCameraState.h"

tcCameraState tcCameraState::powerOn(const tcCameraModel& acModel)
{
    tcCameraState state;
    state.clock = acModel.powerOnClock;
    state.rois.assign(static_cast<size_t>(acModel.maxRois),
                      tcRoi{0, 0, acModel.width, acModel.height});
    for (size_t address = 0; address < state.registers.size(); ++address)
        state.registers[address] = static_cast<unsigned char>(address * 37 + 11);
    return state;
}

unsigned tcCameraState::pinLevels() const
{
    unsigned levels = 0;
    for (size_t pin = 0; pin < pinOut.size(); ++pin) {
        const bool high = pinMode[pin] == 1 || (pinMode[pin] == 2 && acquiring);
        if (pinOut[pin] == 1 && high)
            levels |= 1u << pin;
    }
    return levels;
}
