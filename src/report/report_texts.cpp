#include "report/report_texts.h"

namespace report {

const char* const kNoMatchMessage =
    "There were NO MATCHES. Try with Slow setting! Please also check your files codecs! "
    "You can also try syncing less files to troubleshoot! if you got a problem, and the "
    "following doesn't help, please skype for support(skype username:kestrel) \n"
    " FIRST TRY WITH \"FAST\" SETTING in OPTIONS. DEFAULT and SLOW should be used carefully "
    "as they depend on memory available! \n"
    " If you are trying to sync footage with music, please deselect the option! ";

const char* const kSupportMessage =
    " if you got a problem, and the following doesn't help, please skype for support(skype "
    "username:kestrel) \n"
    " FIRST TRY WITH \"FAST\" SETTING in OPTIONS. DEFAULT and SLOW should be used carefully "
    "as they depend on memory available! \n"
    " If you are trying to sync footage with music, please deselect the option!FILES "
    "LISTED BELOW(IF ANY)  WERE PROBLEMATIC! PLEASE CHECK CODECS! MUTE FILES MAY CAUSE "
    "ERRORS AS WELL! \n"
    " please reencode/convert to other format or in case of WAV files, open them in "
    "Audacity and just export them as WAV. This will repair header corruption if present and \n"
    " has no impact on quality as the PCM stream is untouched. \n"
    " Quicktime Export in WAV or AIFF will do the trick as well. \n"
    " Extremely large WAV files from external recorders may have non-standard header which \n"
    " is the reason why this occurs.\n"
    " It is also useful to consider using 'ONECAMERA/RECORDER option' \n"
    " which will help you group files by recorders/cameras which will dramatically shorten "
    "the time \n"
    " needed to sync files as shots from one group \n"
    " are not synced with each other,except in music videos where \n"
    " this is not desirable as all the takes need to be synced.\n"
    " The basic use of this option is when it's ON, \n"
    " all the files multiselected in one go are part of one group,\n"
    " if you 'ADD MORE' files while the option is still ON, \n"
    " the next mutliselection will form different group.\n"
    " ***************************************************************************** \n"
    "  The other thing to consider is downloading the FULL FFMPEG GPL VERSION! \n"
    " The one bundled with Kestrel is LGPL licensed and doesn't include \n"
    " all the codecs and options the GPL has. \n"
    " All you need to do is replace(backup first) ffmpeg.exe placed in your kestrel "
    "install folder with a full featured one! \n"
    " try this link https://ffmpeg.org/download.html or google it! \n"
    " \n"
    " \n"
    " \n"
    " ***************************************************************************** \n"
    " *****************************************************************************";

}  // namespace report
