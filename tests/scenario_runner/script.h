// The commands of a scenario.
#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace corvane::scenario {

/// A script, or a step of it, that cannot go on. what() says why.
class ScenarioError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One line of a script, split into words.
struct Command {
    QStringList words;
    std::vector<bool> quoted;  ///< of each word whether it stood in double quotes
};

/// Splits a line into words. A word in double quotes may hold blanks, and \" \\ \n \t in it stand
/// for what they usually do. Throws ScenarioError for a quote that does not end.
Command splitWords(const QString& line);

/// A number of a command. Throws ScenarioError where the word is none.
int toInt(const QString& word);

/// The same with decimals, after a period.
double toDouble(const QString& word);

}  // namespace corvane::scenario
