#include "forms/Layout.h"

#include "forms/Pages.h"
