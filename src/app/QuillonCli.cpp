// quillon-cli: Quillon's core without a window, for folders of .syx files and
// for checking the program's tables and conversions from a shell.

#include "app/CliCommands.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kUsage =
    "usage: quillon-cli COMMAND [ARGS]\n"
    "  tables --json                  all parameter, section and subsection tables and defaults\n"
    "  decode TABLE FROM TO           the text of each value of a decode table\n"
    "  info FILE...                   size, kind and items of each .syx file\n"
    "  list FILE                      the text list of a bank, multiset or pattern file\n"
    "  dump FILE [--member N]         the parameter dump of a patch, multiset or pattern\n"
    "  params FILE [--member N] --json  the parameter values of an item as JSON\n"
    "  convert IN OUT                 IN saved again as a plain .syx file\n"
    "  find PATH... [--name TEXT] [--category N|NAME] [--osc1 N|NAME] ...\n"
    "                                 the patches of files and folders that match every\n"
    "                                 condition, as Find finds them (find alone lists them all)\n"
    "  sort BANK --by KEY --out OUT   a PatchBank file sorted as the bank view sorts it; KEY:\n"
    "                                 name, category, group, osc1, osc2, fx1, fx2, filter1,\n"
    "                                 filter2, arp\n"
    "  remap MULTI --old-a F --old-b F --new-a F --new-b F --out OUT\n"
    "                                 a multiset or MultiBank file whose timbres follow their\n"
    "                                 patches from the old bank lists F to the new ones\n"
    "  random PATCH --out BANK [--settings FILE] [--seed N]\n"
    "  spread PATCH --out BANK [--settings FILE]\n"
    "                                 a new bank of 128 variations of PATCH, as Random 128 and\n"
    "                                 Spread 128 make it with the Random or Spread settings of\n"
    "                                 FILE (a Quillonset.dat; the data folder's when not given)\n"
    "  extract BANK --out DIR [--members LIST] [--format N]\n"
    "                                 each patch of a PatchBank file to a file of its own,\n"
    "                                 named as Extract to Files names it\n"
    "  import FILE_OR_DIR... --into BANK --at POS [--bank a|b] --out OUT\n"
    "                                 patch files into consecutive places of a PatchBank\n"
    "                                 from POS, as Import to Bank does\n"
#ifdef QUILLON_CLI_PRINT
    "  print FILE [--member N] --pdf OUT.pdf\n"
    "                                 the printout of the item as a PDF file: a patch\n"
    "                                 subsection by subsection, a multiset, a pattern, a bank list\n"
#endif
    "  ports                          the MIDI input and output devices, numbered\n"
    "  request ITEM --out FILE [--in N] [--out-port N] [--channel C] [--timeout S]\n"
    "                                 asks the Z1 for ITEM (patch, bank-a, bank-b, multi,\n"
    "                                 multibank-a, multibank-b, pattern, pattern-bank)\n"
    "  send FILE [--out-port N] [--channel C] [--yes] [--timeout S]\n"
    "                                 sends the item of FILE to the Z1; replacing a bank\n"
    "                                 or settings needs --yes\n"
    "  show BANK.syx --members LIST [--interval S] [--arp off|on|patch] [--pattern N] [--chords N]\n"
    "       [--out-port N]            the sound show: the patches LIST (0-3,17) sent one every S\n"
    "                                 seconds, a chord on the arpeggiator; Ctrl+C stops it\n"
    "Devices are numbers of 'ports' or a part of a name; --rate B sets the SysEx pace in\n"
    "bytes a second (3125, the speed of a MIDI cable, unless given). QUILLON_MIDI_API\n"
    "chooses the MIDI system: alsa, jack, coremidi, winmm or sim (a simulated Z1).\n"
    "--member N picks a member of a bank from 0; in a file of several kinds a patch\n"
    "0-255 (bank A, then B) or a multiset 0-31.\n";

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << kUsage;
        return quillon::kExitUsage;
    }
    const std::string_view command = argv[1];
    const std::vector<std::string> args(argv + 2, argv + argc);
    if (command == "tables")
        return quillon::runTables(args, std::cout, std::cerr);
    if (command == "decode")
        return quillon::runDecode(args, std::cout, std::cerr);
    if (command == "info")
        return quillon::runInfo(args, std::cout, std::cerr);
    if (command == "list")
        return quillon::runList(args, std::cout, std::cerr);
    if (command == "dump")
        return quillon::runDump(args, std::cout, std::cerr);
    if (command == "params")
        return quillon::runParams(args, std::cout, std::cerr);
    if (command == "convert")
        return quillon::runConvert(args, std::cout, std::cerr);
    if (command == "find")
        return quillon::runFindFiles(args, std::cout, std::cerr);
    if (command == "sort")
        return quillon::runSort(args, std::cout, std::cerr);
    if (command == "extract")
        return quillon::runExtract(args, std::cout, std::cerr);
    if (command == "import")
        return quillon::runImport(args, std::cout, std::cerr);
    if (command == "remap")
        return quillon::runRemap(args, std::cout, std::cerr);
    if (command == "random")
        return quillon::runRandom(args, std::cout, std::cerr);
    if (command == "spread")
        return quillon::runSpread(args, std::cout, std::cerr);
#ifdef QUILLON_CLI_PRINT
    if (command == "print")
        return quillon::runPrint(args, std::cout, std::cerr);
#endif
    if (command == "ports")
        return quillon::runPorts(args, std::cout, std::cerr);
    if (command == "request")
        return quillon::runRequest(args, std::cout, std::cerr);
    if (command == "send")
        return quillon::runSend(args, std::cout, std::cerr);
    if (command == "show")
        return quillon::runShow(args, std::cout, std::cerr);
    std::cerr << kUsage;
    return quillon::kExitUsage;
}
