// Every diagnostic of the check: its code, which never changes, how grave it is, what it means,
// what the launcher would do because of it, and what to do. docs/run-check.md has this table.
#pragma once

#include <cstddef>
#include <string_view>

namespace qvx::runcheck {

enum class Severity { Note, Warning, Error };

struct CodeRow {
  std::string_view code;
  Severity mildest;  ///< what it has where nothing else is said
  Severity gravest;  ///< where it changes the mode, the folders or the machines of the run
  std::string_view meaning;
  std::string_view consequence;
  std::string_view remedy;
  bool preventsStart = false;  ///< as an error; others make it another run than meant
};

constexpr Severity kNote = Severity::Note;
constexpr Severity kWarning = Severity::Warning;
constexpr Severity kError = Severity::Error;
constexpr bool kPreventsStart = true;

inline constexpr CodeRow kCodes[] = {
    // The call
    {"wrong-call", kError, kError, "the check itself is called wrongly", "nothing was checked",
     "QVXRunCheck.exe --help shows both forms of call", kPreventsStart},
    {"information", kNote, kNote, "what was asked for: help, version or an exit status explained",
     "nothing was checked", "this needs nothing to be done"},
    {"call-arguments", kError, kError, "the launcher is called with fewer than two arguments",
     "the launcher would stop with -1 and start nothing", "a call is FIRST_ARGUMENT TOKENS SOLVER",
     kPreventsStart},
    {"call-first-argument", kError, kError, "the first argument is missing or stands twice",
     "the launcher would take the token list for it and the solver's name for the tokens",
     "a call is FIRST_ARGUMENT TOKENS SOLVER", kPreventsStart},
    {"call-solver", kError, kError, "the call names no solver, or an empty one",
     "the launcher would take the token list as the solver's name",
     "the solver's file name is the third argument", kPreventsStart},
    {"call-extra-arguments", kWarning, kWarning, "there are more than three arguments",
     "the launcher would ignore those after the third", "a call is FIRST_ARGUMENT TOKENS SOLVER"},
    {"call-unquoted-blank", kError, kError, "a blank without quotation marks cuts the token list",
     "the launcher would take the pieces as tokens and solver",
     "the token list stands in quotation marks", kPreventsStart},
    {"call-tokens", kWarning, kError, "the token list holds too few tokens, or more than are read",
     "the launcher would leave the fields empty and look in other folders",
     "the tokens are home folder, project directory, project name, option, run number"},
    {"call-empty-token", kWarning, kError, "a token is empty",
     "the launcher would skip it and take every later token for the one before",
     "a token that is not needed is written 0"},
    {"call-separator", kError, kError, "the tokens are separated by something other than *",
     "the launcher would take the whole list as the home folder", "tokens are separated by *",
     kPreventsStart},
    {"call-token-order", kWarning, kError, "the tokens stand in another order",
     "the launcher would go to other folders",
     "the order is home folder, project directory, project name, option, run number"},
    {"call-form", kError, kError, "the form of the call does not fit the solver's family",
     "the launcher would look for the tokens in the other argument",
     "shell solvers read their tokens behind a * in the first argument, all others in the second"},
    {"call-blank", kWarning, kError, "a token or name begins or ends with a blank",
     "the launcher would take it as part of the name", "it is written without the blank"},
    {"call-quotation-mark", kWarning, kError, "an argument holds a quotation mark",
     "the launcher would go to a folder that cannot exist",
     "a backslash before a closing quotation mark is left out"},
    {"molding-type", kWarning, kWarning, "the molding type behind $ is missing or not a number",
     "the launcher would hand another molding type to the solver",
     "the first argument ends in $ and the molding type"},
    {"option-value", kWarning, kWarning, "the option is not a number",
     "the launcher would read it as 0, or as the digits it begins with",
     "the fourth token is an integer"},
    {"solver-path", kError, kError, "the solver's name holds a path",
     "the launcher would look for it below Bin of the home folder",
     "the third argument is a file name alone", kPreventsStart},
    {"solver-name", kWarning, kError, "no rule fits the solver's name, or it is the launcher's",
     "the launcher would run it as FLOW", "a solver's name tells its family"},
    {"solver-rule", kNote, kWarning, "a surprising rule decides the solver's family",
     "the launcher would fill the arguments of that family",
     "the first rule that fits the name decides"},
    {"run-number", kWarning, kError, "the run number is not a number of two digits or more",
     "the launcher would look in another run folder",
     "the run number stands as in the run folder's name"},
    {"text-too-long", kError, kError, "a text is too long for its field",
     "the launcher would end with -2", "it is shortened to less than the width", kPreventsStart},
    {"cannot-allocate", kError, kError, "a count is beyond the machine's memory",
     "the launcher would end with -2", "the count is a small number", kPreventsStart},

    // Places
    {"home-folder", kError, kError, "the home folder is relative, missing or no folder",
     "the launcher would find no solver and stop with -1",
     "the home folder is the one that holds Bin", kPreventsStart},
    {"project-folder", kError, kError, "the project directory is relative, missing or no folder",
     "the run would lose its log", "the project directory is the one that holds Analysis"},
    {"run-folder", kError, kError, "the run folder is missing, no folder or cannot be written to",
     "the run would lose its log", "the run folder is Analysis\\Run and the run number"},
    {"cmx-file", kWarning, kError, "the CMX file is missing, a folder, empty or unreadable",
     "the run would be distributed",
     "it is the project name, the run number and .cmx in the run folder"},
    {"solver-file", kError, kError, "the solver is missing",
     "the launcher would stop with -1, or the MPI process launcher would fail",
     "the solver lies in Bin of the home folder", kPreventsStart},
    {"solver-program", kError, kError, "the solver is no program for this machine",
     "it would not start", "a solver is a Windows program for x86-64", kPreventsStart},
    {"other-program", kError, kError, "a path with blanks stands without quotation marks",
     "the system would start another program", "the other program is moved away"},
    {"library-missing", kError, kError, "one of the three libraries cannot be loaded",
     "the launcher would not start", "it lies beside the launcher", kPreventsStart},
    {"library-failed", kError, kError, "one of the three libraries fails",
     "the launcher would end with -2", "the installation is repaired", kPreventsStart},
    {"project-ini", kError, kError, "QVXProject.ini or its key is missing",
     "the run would go to a share without a name",
     "it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration"},
    {"account-file", kError, kError, "acc.ini is missing or empty",
     "the launcher would stop with -1", "it holds the MPI accounts and lies in the home folder",
     kPreventsStart},
    {"mpi-path", kError, kError, "the registry does not tell where impiexec.exe is",
     "the launcher would stop with -1",
     "IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, the folder of "
     "impiexec.exe",
     kPreventsStart},
    {"mpi-launcher", kError, kError, "impiexec.exe is missing or no program for this machine",
     "the launcher would stop with -1",
     "IntelMPI_InstallPath names the folder that holds impiexec.exe", kPreventsStart},
    {"deletes-other-file", kWarning, kWarning, "a file named like an earlier log is none",
     "the launcher would delete it", "move or rename it before the run"},
    {"debug-trace", kNote, kNote, "the debug-trace switch file exists",
     "the launcher would print its trace", "without the file there is no trace"},

    // The CMX file
    {"cmx-byte-order-mark", kWarning, kError, "the file begins with a byte-order mark",
     "the launcher would not recognise the first line", "the file is saved without it"},
    {"cmx-utf-16", kError, kError, "the file is UTF-16 or UTF-32",
     "the launcher would read nothing of it and run distributed",
     "the file is saved in the ANSI code page"},
    {"cmx-zero-byte", kNote, kError, "a line holds a zero byte",
     "the launcher would read the line up to it", "the byte is removed"},
    {"cmx-control-z", kWarning, kError, "a Ctrl-Z stands within the file",
     "the launcher would read the file up to it", "the byte is removed"},
    {"cmx-line-ends", kError, kError, "lines end in lone, doubled or misplaced carriage returns",
     "the launcher would not recognise tags and values",
     "a line ends in one carriage return and one line feed"},
    {"cmx-long-line", kWarning, kWarning, "a line of a section has more than 1023 bytes",
     "the launcher would read it as several lines", "it is written shorter"},
    {"cmx-tag", kWarning, kError, "a line nearly opens or closes a section",
     "the launcher would not recognise it",
     "a tag is the whole line, without blanks and in its own letter case"},
    {"cmx-section-open", kWarning, kWarning, "a section is never closed",
     "the launcher would read on to the end of the file", "it ends with its closing tag"},
    {"cmx-section-twice", kWarning, kWarning, "a section is opened twice",
     "the launcher would let the later values count", "the file holds it once"},
    {"cmx-section-missing", kWarning, kError, "a section that the run needs is missing",
     "the launcher would take every value of it as empty",
     "the section is written into the CMX file"},
    {"cmx-unknown-key", kNote, kError, "a key is none of its section's",
     "the launcher would ignore the line", "leave the line out"},
    {"cmx-key-case", kWarning, kError, "a key stands in another letter case",
     "the launcher would ignore the line", "keys are written in their own letter case"},
    {"cmx-key-blank", kWarning, kError, "a tab or another invisible character stands in a key",
     "the launcher would ignore the line", "only spaces may stand beside the key"},
    {"cmx-key-section", kWarning, kError, "a key stands in another section, or in none",
     "the launcher would ignore the line", "move it into its section"},
    {"cmx-key-twice", kWarning, kError,
     "a key comes twice with different values, or opens its block twice",
     "the launcher would let the last value count", "it stands once"},
    {"cmx-key-missing", kWarning, kError, "a key that the run needs is missing",
     "the launcher would take its value as empty", "the key is written into its section"},
    {"cmx-no-equals", kWarning, kError, "a key stands without =",
     "the launcher would take the word NULL as its value", "key and value are separated by ="},
    {"cmx-separator", kWarning, kError, "key and value are separated by something other than one =",
     "the launcher would ignore the line or take the rest into the value",
     "key and value are separated by one ="},
    {"cmx-trailing-blank", kWarning, kError,
     "a value has a blank or another invisible character "
     "behind it",
     "the launcher would take it as part of the value", "the line ends with the value"},
    {"cmx-leading-tab", kWarning, kError,
     "a tab or another invisible character stands before a "
     "value",
     "the launcher would take it as part of the value", "only spaces may stand before a value"},
    {"cmx-comment", kWarning, kError, "a comment stands behind a value",
     "the launcher would take it as part of the value", "there are no comments behind values"},
    {"cmx-quoted-value", kWarning, kError, "a value stands in quotation marks",
     "the launcher would take them as part of the value", "values stand without them"},
    {"cmx-mode", kWarning, kError, "IDTaskMode is neither 0 nor 1", "the run would be distributed",
     "0 is this machine, 1 is several"},
    {"cmx-number", kWarning, kError, "a value is not the number that is expected",
     "the launcher would read another number", "the value is a plain decimal number"},
    {"task-count", kError, kError, "the number of tasks is no number above 0",
     "the MPI process launcher would be asked for no process", "ValueNoTask is 1 or more",
     kPreventsStart},
    {"tasks-differ", kNote, kNote, "several tasks are given and one process runs",
     "the launcher would run serially because ValueLocalNoTask is 1",
     "ValueLocalNoTask holds the number of tasks too"},
    {"processors", kNote, kNote, "there are more tasks than this machine has processors",
     "the processes would share the processors", "a task for each processor is the most"},
    {"previous-shot", kNote, kNote, "the previous shot's project cannot be found",
     "the launcher would hand it to the solver as it stands",
     "ValueShotProjectPath is the folder of the previous shot's project"},

    // Machines
    {"machine-count", kError, kError, "ValueNoMachine does not fit the machine block",
     "the run would go to other machines than listed",
     "ValueNoMachine is the number of lines in each of the two blocks"},
    {"weighting-count", kWarning, kError, "ValueNoMachine does not fit the weighting block",
     "the launcher would take other lines as weightings, or none",
     "ValueNoMachine is the number of lines in each of the two blocks"},
    {"machine-count-late", kError, kError, "ValueNoMachine stands after a block",
     "the launcher would leave the machines empty", "it stands before both blocks"},
    {"machine-line", kError, kError, "a line of the machine block is no machine",
     "the run would go to other machines than listed",
     "a machine is a line any=host, a tab and its tasks"},
    {"machine-separator", kError, kError, "host and tasks are not separated by a tab",
     "the launcher would take the whole text as the host, with NULL tasks",
     "one tab stands between host and tasks"},
    {"machine-tasks", kError, kError, "a machine's task count is no number above 0",
     "no process would run there", "tasks are a number of 1 or more"},
    {"machine-host", kWarning, kError, "a host name holds blanks or characters that none has",
     "the MPI process launcher would ask for another machine",
     "a host name stands alone, without backslashes and blanks"},
    {"machine-twice", kWarning, kWarning, "a host is listed twice",
     "the launcher would list it twice", "a host has one line with all its tasks"},
    {"weighting-value", kWarning, kWarning, "a weighting is no decimal number above 0",
     "the launcher would read it as another number", "a weighting is a number such as 0.6"},
    {"weighting-sum", kWarning, kWarning, "the weightings do not add up to 1",
     "the solver would get weights that do not add up to 1", "weightings are shares of 1"},
    {"storage-node", kError, kError, "the storage node is empty or no host name",
     "the run would go to folders that cannot be reached",
     "ValueStorageNode, or ValueLocalHost, is a host name alone"},
    {"share-name", kError, kError, "ValueShareFolderName is empty or no share's name",
     "the run would go to another folder", "it is the share's name, without backslashes around it"},
    {"working-folder", kWarning, kError,
     "ValueParallelWorkingFolder does not fit the project "
     "directory",
     "the run would go to another folder",
     "it is the shared folder above the project, without a backslash at its end"},
    {"command-line-length", kError, kError, "the command line is too long",
     "the process would not start, or be ended at once", "machines and paths are made fewer",
     kPreventsStart},

    // The network
    {"host-unknown", kNote, kNote, "a host's name is not known here",
     "the MPI process launcher might not find it", "check the name"},
    {"host-silent", kNote, kNote, "nothing answered in time", "the run may have to wait for it too",
     "--timeout gives it longer"},
    {"share-unreachable", kError, kError, "a shared folder or the shared solver cannot be reached",
     "the run would fail on its machines or lose its log",
     "the share is set up on the storage node"},
    {"not-seen", kNote, kNote, "what remote machines see cannot be told from here",
     "each machine has to reach the shares and the solver by itself",
     "try each machine once by hand"},
};

/// Names a row of the table; a code that is none does not compile.
class Code {
 public:
  consteval Code(const char* code) : row_(Find(code)) {}  // NOLINT: a code is its text
  [[nodiscard]] const CodeRow& Row() const { return kCodes[row_]; }

 private:
  static consteval std::size_t Find(std::string_view code) {
    std::size_t row = 0;
    while (kCodes[row].code != code) ++row;  // past the table: no constant expression
    return row;
  }
  std::size_t row_;
};

}  // namespace qvx::runcheck
