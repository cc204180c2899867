// As precompiled.h, for the test programs.
#pragma once

#include <gtest/gtest.h>

#include "cmake/precompiled.h"
