#pragma once

/// Control of the virtual thermocouple logger. Plain C, exported by the virtual driver beside
/// the driver's own functions. Thread-safe.

#include <stdint.h>

#if defined(_WIN32)
#if defined(TC08SIM_BUILD)
#define TC08SIM_API __declspec(dllexport)
#else
#define TC08SIM_API __declspec(dllimport)
#endif
#else
#define TC08SIM_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C"
{
#endif
    /// Carries out directives, separated by blanks, semicolons or line feeds. 1 if all of them
    /// were understood, else 0; the others are carried out nevertheless.
    ///
    ///   reset              as at the start: seed 1, one unit, nothing wrong
    ///   seed=N             another set of temperatures
    ///   conversion_ms=N    how long a reading takes; 180 at the start
    ///   value3=T           channel 3 reads T: a number, "nan", "inf", "-inf"; "auto" ends it
    ///   overflow=F         overflow flags of each reading, for example 0x08; 0 for none
    ///   open=H             handle that opening a unit gives: -1 fails, 0 is no unit. What is
    ///                      asked of any other handle than the one given last fails
    ///   error=N            the last error
    ///   fail=FUNCTION      it does nothing and says so: set_mains, get_single, ...
    ///   mend=FUNCTION      it works again
    ///   hang=FUNCTION      calls of it do not return: open_unit, get_single, ...
    ///   release            those that hang return now, and nothing hangs any longer
    ///
    /// The environment variable TC08SIM holds directives for the start; TC08SIM_FILE names a
    /// file with directives that are carried out whenever it changes, looked at before each
    /// call.
    TC08SIM_API int tc08sim_command(const char* acDirectives);

    TC08SIM_API int tc08sim_calls(const char* acFunction);  ///< begun since the last reset
    TC08SIM_API int tc08sim_inside(const char* acFunction); ///< begun and not yet returned
    TC08SIM_API int tc08sim_channel_type(int anChannel);    ///< last set; 0 if never
    TC08SIM_API int tc08sim_mains(void);                    ///< last set; -1 if never
    /// Most calls that were ever inside the driver at once since the last reset.
    TC08SIM_API int tc08sim_most_at_once(void);
#ifdef __cplusplus
}
#endif
