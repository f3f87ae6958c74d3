// Les files d'exécution : ce que plateforme/macos en appelle (files.mm y répond).
#pragma once

extern "C" {

typedef struct dispatch_queue_s* dispatch_queue_t;
typedef void (^dispatch_block_t)(void);

enum { QOS_CLASS_DEFAULT = 0x15 };

dispatch_queue_t dispatch_get_global_queue(long qualite, unsigned long drapeaux);
dispatch_queue_t dispatch_get_main_queue(void);
void dispatch_async(dispatch_queue_t file, dispatch_block_t bloc);

} // extern "C"
