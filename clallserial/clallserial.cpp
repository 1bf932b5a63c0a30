#include "camlink/clserial.h"
