#pragma once

// What AutomationBase.idl stands for, as the compiler knows it: the generated header includes this one.
#include "platform/windows/Windows.h"
