#pragma once

#define IDD_FRAMEWORK_TEST 200
