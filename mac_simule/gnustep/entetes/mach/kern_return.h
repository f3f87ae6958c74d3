#pragma once

typedef int kern_return_t;

enum : kern_return_t { KERN_SUCCESS = 0 };
