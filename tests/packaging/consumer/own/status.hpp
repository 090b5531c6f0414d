#pragma once
constexpr int no_status = 0;
