#pragma once
#include "host/ed/drawingoptions.h"
