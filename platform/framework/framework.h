// The whole windowing framework.
#pragma once

#include "platform/framework/controls.h"
#include "platform/framework/data_exchange.h"
#include "platform/framework/dialog.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/gdi.h"
#include "platform/framework/message_map.h"
#include "platform/framework/reflection.h"
#include "platform/framework/resource_module.h"
#include "platform/framework/strings.h"
#include "platform/framework/wnd.h"
