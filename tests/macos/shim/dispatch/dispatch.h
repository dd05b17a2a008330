// The queues, as far as the program uses them: a test runs what is in them.
#pragma once

#include <Block.h>
#include <objc/objc.h>

#include <deque>

typedef void (^dispatch_block_t)(void);
typedef std::deque<dispatch_block_t>* dispatch_queue_t;
typedef unsigned qos_class_t;
enum : qos_class_t { QOS_CLASS_UTILITY = 0x11 };

extern "C" dispatch_queue_t dispatch_get_main_queue();
extern "C" dispatch_queue_t dispatch_get_global_queue(intptr_t quality, uintptr_t flags);
extern "C" void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
