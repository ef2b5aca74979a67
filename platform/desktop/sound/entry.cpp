// Where the program comes in.
#include "platform/desktop/sound/sound_devices.h"

#if defined(_WIN32)
#define ZARN_EXPORT __declspec(dllexport)
#else
#define ZARN_EXPORT __attribute__((visibility("default")))
#endif

namespace zarn
{
extern "C" ZARN_EXPORT SoundModule* zarn_sound_module(SoundSetup const& setup)
{
    // It lives to the end of the process, as the module does.
    static SoundModule* const pModule = NewSoundModule(setup).release();
    return pModule;
}
} // namespace zarn
