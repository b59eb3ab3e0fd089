// Joins the platform's build tool to its C++ modules, and lets it print stand-ins for the
// platform's own modules, which its package brings along.
package main

import (
	"fmt"
	"os"

	"android/soong/android"
	"android/soong/cc"
)

func init() {
	if len(os.Args) == 2 && os.Args[1] == "--platform-modules" {
		fmt.Println(cc.GatherRequiredDepsForTest(android.Android))
		os.Exit(0)
	}
}
