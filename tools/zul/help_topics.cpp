#include "command_tree.h"

namespace tool {

const std::vector<HelpTopic>& help_topics() {
    static const std::vector<HelpTopic> topics = {
        {"exit-codes", "What the exit status means",
         "  0    done; for a question: yes, good, valid\n"
         "  1    refused by the library or the system; for a question: no, not good, revoked\n"
         "  2    wrong arguments: nothing was done\n"
         "\n"
         "A message on standard error tells why. It holds the library's error code: 'zul error CODE'\n"
         "says what that means.\n"},
        {"environment", "Variables that the tool looks at",
         "  NO_COLOR                    not empty: no colours\n"
         "  CLICOLOR_FORCE              not empty and not 0: colours even into pipes and files\n"
         "  TERM                        dumb: no colours and no progress\n"
         "  TMPDIR                      folder for temporary files (TMP on Windows)\n"
         "  ZUL_ALLOW_ARGUMENT_SECRETS  1: no warning of secrets among the arguments\n"
         "\n"
         "Colours and progress are for terminals; a pipe or a file never gets them unasked.\n"},
        {"formats", "Forms in which keys, certificates and messages are read",
         "Keys, certificates, requests, lists and messages are read as DER, PEM or base64 text, whatever\n"
         "the name of the file; keys as XML too, and private keys encrypted or not. Without another\n"
         "option they are written as PEM, messages and PKCS #12 files as DER.\n"
         "\n"
         "  -        as the name of a file: standard input or standard output\n"
         "  HEX      digits in either case\n"
         "  DATE     2026-01-31 or 2026-01-31T12:30:00, UTC\n"
         "  NAME     C=AU;O=Example;CN=Alice\n"},
    };
    return topics;
}

} // namespace tool
